#pragma once

#include <array>

#include "base/color.h"

namespace rondora {

/// WCAG 2.1 requires a contrast of 3 for graphics and large text; a little more allows for rounding and smooth edges.
inline constexpr double kLegible = 3.2;

/// The weakest halo around letters of `ink`, which may be translucent, that is legible beside them on both opaque
/// backgrounds: black or white with an alpha of 0 to 1. The strongest one if none is legible.
Color legibleHalo(Color ink, const std::array<Color, 2>& backgrounds);

}  // namespace rondora
