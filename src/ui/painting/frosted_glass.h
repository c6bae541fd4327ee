#pragma once

#include "base/color.h"
#include "platform/picture_rasterizer.h"

namespace rondora {

/// The optical properties of frosted glass.
struct Frost {
  double blurRadius = 0;  // pixels; a point of light spreads about this far
  /// As in BackdropPaint.
  double saturation = 1;
  double brightest = 1;
  Color veil{0, 0, 0, 0};
};

/// Fills `target` with `screen` seen through the glass. Both have the same size; `screen` is opaque and is extended at
/// its edges by its outermost pixels. The time is proportional to the area and independent of the radius.
void frost(const PixelBuffer& screen, const Frost& frost, PixelBuffer target);

}  // namespace rondora
