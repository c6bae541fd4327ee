#include "pie/picture/icon_plate.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace rondora {
namespace {

constexpr double kDistinct = 2.2;             // contrast
constexpr double kDistinctHighlighted = 1.5;  // the same where the highlight draws the eye anyway
constexpr double kDistantColors = 0.4;        // of 1; blue is distinct on orange, however light
constexpr double kDistinctShare = 0.5;        // of the outline
constexpr double kLightBonus = 0.25;          // a dark plate looks like a hole
constexpr Color kLightPlate{0.96, 0.96, 0.97, 1};
constexpr Color kDarkPlate{0.13, 0.13, 0.15, 1};

/// Weighted by how much the eye sees of each component; from 0 to 1.
double distance(Color a, Color b) {
  const auto squared = [](double difference) { return difference * difference; };
  return std::sqrt(0.30 * squared(a.red - b.red) + 0.59 * squared(a.green - b.green) + 0.11 * squared(a.blue - b.blue));
}

double distinctShare(std::span<const Color> outline, Color background, double neededContrast) {
  const auto isDistinct = [&](Color color) {
    return distance(color, background) >= kDistantColors || contrast(color, background) >= neededContrast;
  };
  const auto distinct = std::count_if(outline.begin(), outline.end(), isDistinct);
  return static_cast<double>(distinct) / static_cast<double>(std::max<std::size_t>(outline.size(), 1));
}

}  // namespace

std::optional<Color> plateFor(std::span<const Color> outline, const IconBackgrounds& backgrounds) {
  const double share = std::min({distinctShare(outline, backgrounds.darkest, kDistinct),
                                 distinctShare(outline, backgrounds.lightest, kDistinct),
                                 distinctShare(outline, backgrounds.highlighted, kDistinctHighlighted)});
  if (outline.empty() || share >= kDistinctShare) return std::nullopt;
  const double onLight = distinctShare(outline, kLightPlate, kDistinct);
  const bool isLight = onLight + kLightBonus >= distinctShare(outline, kDarkPlate, kDistinct);
  return isLight ? kLightPlate : kDarkPlate;
}

}  // namespace rondora
