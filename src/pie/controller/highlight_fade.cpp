#include "pie/controller/highlight_fade.h"

#include <algorithm>

namespace rondora {

HighlightFade::HighlightFade(std::size_t sectorCount, double seconds)
    : seconds_(seconds > 0 ? seconds : 0), travelled_(sectorCount, 0.0) {}

bool HighlightFade::travel(std::size_t index, double target, double step) {
  const double before = travelled_[index];
  travelled_[index] = std::clamp(target, before - step, before + step);
  return travelled_[index] != before;
}

bool HighlightFade::isAtRest(Index highlighted) const {
  for (std::size_t i = 0; i < travelled_.size(); ++i) {
    if (travelled_[i] != target(i, highlighted)) return false;
  }
  return true;
}

/// Slow at both ends, so that a reversal does not jerk.
double HighlightFade::eased(double travelled) { return travelled * travelled * (3 - 2 * travelled); }

}  // namespace rondora
