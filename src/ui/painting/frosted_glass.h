#pragma once

#include "base/color.h"
#include "platform/picture_rasterizer.h"

namespace rondora {

/// How glass changes what is seen through it.
struct Frost {
  double blurRadius = 0;  // pixels; about what a point of light spreads to
  /// As in BackdropPaint.
  double saturation = 1;
  double brightest = 1;
  Color veil{0, 0, 0, 0};
};

/// Fills `target` with what `screen`, of the same size and opaque, looks like through the glass. Beyond its edges the
/// screen is taken to go on as it ends there. Takes time in proportion to the area, whatever the radius.
void frost(const PixelBuffer& screen, const Frost& frost, PixelBuffer target);

}  // namespace rondora
