#pragma once

#include "platform/picture_decoder.h"

namespace rondora::macos {

/// The system has no icon themes, so their icons are unreadable. Main thread.
PictureResult decodePicture(const PictureRequest& request);

}  // namespace rondora::macos
