#pragma once

#include "platform/picture_decoder.h"

namespace rondora {

/// Decodes a picture with the toolkit, on the calling thread and without limits of time and memory but the toolkit's
/// own: for the picture process, and for tools and tests whose pictures can be trusted. Needs a QGuiApplication.
PictureResult decodePicture(const PictureRequest& request);

/// The same as a DecodePicture that completes at once.
Subscription decodeAtOnce(const PictureRequest& request, const PictureDecoder::Completion& completion);

}  // namespace rondora
