#pragma once

#include "platform/picture_decoder.h"

namespace rondora::macos {

/// Any thread. The system has no icon themes and its decoders read no drawings; both are unreadable.
PictureResult decodePicture(const PictureRequest& request);

}  // namespace rondora::macos
