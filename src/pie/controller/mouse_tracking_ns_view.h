#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "base/geometry.h"
#include "model/pie_menu_item.h"
#include "platform/haptics.h"
#include "platform/pointer.h"

namespace rondora {

/// What the overlay makes of the pointer. Points are in the view's own coordinates, y down. The callbacks about sectors
/// and clicks may end the view. Main thread.
class MouseTrackingNSView {
 public:
  using SectorIndex = std::optional<std::size_t>;

  MouseTrackingNSView(Haptics& haptics, Pointer& pointer) : haptics_(haptics), pointer_(pointer) {}

  Point center;
  double radius = 0;  // outer radius; limits no hit
  double innerRadius = 0;
  std::size_t sectorCount = 0;
  double rotationDegrees = 0;
  std::vector<PieMenuItem> items;
  bool innerCircleHighlightsFirstSector = false;
  bool hapticFeedbackEnabled = true;

  std::function<void(Point)> onPointerLocationUpdate;
  std::function<void(SectorIndex)> onHover;
  std::function<void(const PieMenuItem&, std::size_t)> onSelect;
  std::function<void()> onDismiss;

  /// Every point outside the hub belongs to a sector, however far away it is.
  SectorIndex hoverSectorIndex(Point at) const;

  void mouseMoved(Point location);
  /// `windowLocation` is where the pointer is outside the event stream.
  void mouseEntered(Point windowLocation);
  void mouseExited();
  void cursorUpdate(Point location);
  /// Chooses or dismisses.
  void mouseDown(Point location);

 private:
  void hover(SectorIndex index);

  Haptics& haptics_;
  Pointer& pointer_;
  SectorIndex lastHoveredSectorIndex_;
  std::optional<CursorShape> cursor_;
};

}  // namespace rondora
