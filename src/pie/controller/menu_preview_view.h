#pragma once

#include <cstddef>
#include <optional>

#include "base/geometry.h"
#include "platform/haptics.h"

namespace rondora {

/// The angles of the editor's preview: the overlay's layout with a dead zone along every boundary.
struct MenuPreviewView {
  std::size_t sectorCount = 0;
  double rotationDegrees = 0;

  double endAngle(std::size_t index) const;
  /// `angle` is the pointer's around the centre, `radiusAtPoint` its distance in points. None in a dead zone.
  std::optional<std::size_t> absoluteSectorIndex(double angle, double radiusAtPoint) const;
};

/// One drag around the preview's wheel.
class WheelTurn {
 public:
  /// `startAngle` is the pointer's angle around the preview's centre where the drag began.
  WheelTurn(double startRotationDegrees, double startAngle, std::size_t sectorCount);

  static double pointerAngle(Point pointer, Point center);
  /// The menu's rotation for the pointer's angle; ticks if it changed.
  double rotationDegrees(double pointerAngle, bool hapticFeedbackEnabled, Haptics& haptics);

 private:
  double startRotationDegrees_;
  double startAngle_;
  std::size_t sectorCount_;
  double lastRotationDegrees_;
};

}  // namespace rondora
