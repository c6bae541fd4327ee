#include "pie/geometry/ring_layout.h"

#include <algorithm>
#include <cmath>

#include "pie/geometry/sector_geometry.h"

namespace rondora {
namespace {

constexpr double kSmallestRing = 22;  // points, before scaling
constexpr double kSmallestHub = 12;

/// A number of the document, or `fallback` for one that is none, in reasonable bounds.
double bounded(double value, double fallback, double lowest, double highest) {
  return std::clamp(std::isfinite(value) ? value : fallback, lowest, highest);
}

}  // namespace

RingLayout RingLayout::make(const PieMenu& menu, double rotationDegrees, std::size_t itemCount, double largestRadius) {
  const PieMenu defaults;
  RingLayout layout;
  layout.rotationDegrees = std::isfinite(rotationDegrees) ? rotationDegrees : 0;
  layout.sectorCount = std::max<std::size_t>(itemCount, 1);
  const double radius = bounded(menu.menuRadius, defaults.menuRadius, kSmallestHub + kSmallestRing, 1e6);
  const double hub = bounded(menu.innerRadius, defaults.innerRadius, kSmallestHub, radius - kSmallestRing);
  const double wanted = bounded(menu.appearanceScale, defaults.appearanceScale, 0.25, 4);
  const double shrink = std::min(1.0, largestRadius / (radius * wanted));
  layout.outerRadius = radius * wanted * shrink;
  layout.innerRadius = hub * wanted * shrink;
  layout.scale = std::min(wanted, layout.outerRadius / (kSmallestHub + kSmallestRing));
  return layout;
}

double RingLayout::halfSide() const { return std::ceil(outerRadius + std::max(shadowWidth(), highlightGrowth() + 2)); }

double RingLayout::hairline() const { return std::clamp(scale, 1.0, 1.5); }

double RingLayout::sectorStart(std::size_t index) const { return startAngle(index, sectorCount, rotationDegrees); }

double RingLayout::sectorEnd(std::size_t index) const { return endAngle(index, sectorCount, rotationDegrees); }

double RingLayout::sectorMiddle(std::size_t index) const { return (sectorStart(index) + sectorEnd(index)) / 2; }

}  // namespace rondora
