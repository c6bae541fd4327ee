#include "pie/controller/menu_preview_view.h"

#include <algorithm>
#include <cmath>

#include "pie/geometry/sector_geometry.h"

namespace rondora {
namespace {

/// Half the width of the dead zone along a boundary, as an angle seen from the centre.
double halfGapAngle(double radius) {
  constexpr double kHalfGap = 3.5;   // points
  constexpr double kMaxSine = 0.95;  // about 72 degrees
  const double sine = radius >= 1 ? std::min(kMaxSine * radius, kHalfGap) / radius : kMaxSine;
  return std::asin(sine);
}

}  // namespace

double MenuPreviewView::endAngle(std::size_t index) const {
  return rondora::endAngle(index, sectorCount, rotationDegrees);
}

std::optional<std::size_t> MenuPreviewView::absoluteSectorIndex(double angle, double radiusAtPoint) const {
  if (sectorCount < 2) return 0;
  const double a = reducedToFullTurn(angle + std::numbers::pi / 2 - radiansFromRotation(rotationDegrees));
  const double width = sectorWidth(sectorCount);
  const double fromBoundary = reducedToHalfTurns(a - width * std::round(a / width));
  const double gap = halfGapAngle(radiusAtPoint);
  const double widest = width / 2 - 0.001;
  const double limit = widest >= 0 ? std::min(widest, gap) : gap;
  if (std::abs(fromBoundary) < limit) return std::nullopt;
  return sectorIndexAt(a, sectorCount);
}

WheelTurn::WheelTurn(double startRotationDegrees, double startAngle, std::size_t sectorCount)
    : startRotationDegrees_(startRotationDegrees),
      startAngle_(startAngle),
      sectorCount_(std::max<std::size_t>(sectorCount, 1)),
      lastRotationDegrees_(startRotationDegrees) {}

double WheelTurn::pointerAngle(Point pointer, Point center) {
  return std::atan2(pointer.y - center.y, pointer.x - center.x);
}

double WheelTurn::rotationDegrees(double pointerAngle, bool hapticFeedbackEnabled, Haptics& haptics) {
  const double delta = reducedToHalfTurns(pointerAngle - startAngle_);
  const double rotation = snappedAestheticRotationDegrees(startRotationDegrees_ + delta * 180 / std::numbers::pi,
                                                          static_cast<std::int64_t>(sectorCount_));
  const bool changed = std::abs(rotation - lastRotationDegrees_) > 0.001;
  if (changed && hapticFeedbackEnabled) haptics.perform(HapticPattern::alignment);
  lastRotationDegrees_ = rotation;
  return rotation;
}

}  // namespace rondora
