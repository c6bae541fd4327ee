#pragma once

#include "base/color.h"
#include "base/display_list.h"
#include "model/liquid_glass_settings.h"

namespace rondora {

/// What a menu's glass is made of. `regular` glass is frosted and dark; `clear` glass shows more of what lies beneath
/// and catches more light at its edges. Both stay so dark that white can be read on them, whatever lies beneath.
struct GlassStyle {
  BackdropPaint backdrop;
  /// How strongly the item's colour is laid over the glass of its sector.
  double tintAtHub = 0;
  double tintAtRim = 0;
  /// The light on the upper and the lower edges, as the opacity of white.
  double upperEdge = 0;
  double lowerEdge = 0;

  static GlassStyle of(const LiquidGlassSettings& settings);
};

}  // namespace rondora
