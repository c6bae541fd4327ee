#pragma once

#include "base/color.h"
#include "base/display_list.h"
#include "model/liquid_glass_settings.h"

namespace rondora {

/// The material of a menu's glass. `regular` glass is frosted and dark; `clear` glass shows more of the screen beneath
/// and has brighter edges. Both are dark enough for white text over any screen.
struct GlassStyle {
  BackdropPaint backdrop;
  /// Opacity of the item's colour over its sector's glass.
  double tintAtHub = 0;
  double tintAtRim = 0;
  /// The light on the upper and the lower edges, as the opacity of white.
  double upperEdge = 0;
  double lowerEdge = 0;
  /// What the glass looks like over a black and over a white screen.
  Color darkest;
  Color lightest;

  static GlassStyle of(const LiquidGlassSettings& settings);
};

}  // namespace rondora
