#pragma once

#include "base/color.h"
#include "platform/picture_rasterizer.h"

namespace rondora {

/// Colours letters, of which only alpha counts, with `ink`, and the pixels around them, up to `reach` away, with
/// `halo`. The halo does not lie beneath the letters. In place; `reach` more pixels around the letters must be in the
/// buffer.
void drawWithHalo(const PixelBuffer& letters, Color ink, Color halo, int reach);

}  // namespace rondora
