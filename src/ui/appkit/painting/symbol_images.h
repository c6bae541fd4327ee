#pragma once

#include <string_view>

#include "base/color.h"
#include "ui/appkit/painting/bitmap.h"

namespace rondora::appkit {

/// The system's symbol of that name, or the one that stands in, fitted into `side` pixels.
Image symbolImage(std::string_view name, int side, Color tint);

}  // namespace rondora::appkit
