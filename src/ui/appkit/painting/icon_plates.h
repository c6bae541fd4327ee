#pragma once

#include "base/display_list.h"
#include "ui/appkit/painting/bitmap.h"

namespace rondora::appkit {

/// The icon itself where it is distinct, else the icon on a plate of `side` pixels.
Image platedIcon(const Image& icon, const IconBackgrounds& backgrounds, int side);

}  // namespace rondora::appkit
