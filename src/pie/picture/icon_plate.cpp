#include "pie/picture/icon_plate.h"

#include <algorithm>
#include <cstddef>

namespace rondora {
namespace {

constexpr double kDistinct = 2.0;       // contrast
constexpr double kDistinctShare = 0.5;  // of the outline
constexpr Color kLightPlate{0.96, 0.96, 0.97, 1};
constexpr Color kDarkPlate{0.13, 0.13, 0.15, 1};

double distinctShare(std::span<const Color> outline, Color background) {
  const auto isDistinct = [&](Color color) { return contrast(color, background) >= kDistinct; };
  const auto distinct = std::count_if(outline.begin(), outline.end(), isDistinct);
  return static_cast<double>(distinct) / static_cast<double>(std::max<std::size_t>(outline.size(), 1));
}

}  // namespace

std::optional<Color> plateFor(std::span<const Color> outline, const IconBackgrounds& backgrounds) {
  const double share =
      std::min(distinctShare(outline, backgrounds.normal), distinctShare(outline, backgrounds.highlighted));
  if (outline.empty() || share >= kDistinctShare) return std::nullopt;
  return distinctShare(outline, kLightPlate) >= distinctShare(outline, kDarkPlate) ? kLightPlate : kDarkPlate;
}

}  // namespace rondora
