#include "pie/controller/opening_animation.h"

#include <algorithm>

namespace rondora {

AppearancePhase OpeningAnimation::phase(double elapsed) const {
  if (isOver(elapsed)) return {};
  constexpr AppearancePhase kFirst{0.86, 0.5};  // visible in the first frame
  const double rest = 1 - std::max(elapsed, 0.0) / duration;
  const double eased = 1 - rest * rest * rest;
  return {kFirst.scale + (1 - kFirst.scale) * eased, kFirst.opacity + (1 - kFirst.opacity) * eased};
}

}  // namespace rondora
