#include "pie/geometry/ring_layout.h"

#include <algorithm>
#include <cmath>

#include "model/appearance_fields.h"
#include "pie/geometry/sector_geometry.h"

namespace rondora {
RingLayout RingLayout::make(const PieMenu& menu, double rotationDegrees, std::size_t itemCount, double maxRadius) {
  RingLayout layout;
  layout.rotationDegrees = appearanceField<&PieMenu::rotationDegrees>().toDraw(rotationDegrees);
  layout.sectorCount = std::max<std::size_t>(itemCount, 1);
  const double radius = drawn<&PieMenu::menuRadius>(menu);
  const double hub = std::min(drawn<&PieMenu::innerRadius>(menu), radius - PieMenu::kMinRingWidth);
  const double wanted = drawn<&PieMenu::appearanceScale>(menu);
  const double shrink = std::min(1.0, maxRadius / (radius * wanted));
  layout.outerRadius = radius * wanted * shrink;
  layout.innerRadius = hub * wanted * shrink;
  layout.scale = std::min(wanted, layout.outerRadius / (PieMenu::kMinInnerRadius + PieMenu::kMinRingWidth));
  return layout;
}

double RingLayout::halfSide() const { return std::ceil(outerRadius + std::max(shadowWidth(), highlightGrowth() + 2)); }

double RingLayout::hairline() const { return std::clamp(scale, 1.0, 1.5); }

double RingLayout::sectorStart(std::size_t index) const { return startAngle(index, sectorCount, rotationDegrees); }

double RingLayout::sectorEnd(std::size_t index) const { return endAngle(index, sectorCount, rotationDegrees); }

double RingLayout::sectorMiddle(std::size_t index) const { return (sectorStart(index) + sectorEnd(index)) / 2; }

}  // namespace rondora
