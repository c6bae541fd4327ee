#pragma once

#include <string_view>

#include "ui/appkit/painting/bitmap.h"

namespace rondora::appkit {

/// Fitted into `side` pixels, in the colours of the system's emoji. Null for an empty text.
Image emojiImage(std::string_view text, int side);

}  // namespace rondora::appkit
