#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "base/geometry.h"
#include "pie/geometry/ring_layout.h"
#include "platform/haptics.h"
#include "platform/pointer.h"

namespace rondora {

/// Turns pointer events over the overlay into hover changes, haptic ticks, cursor shapes and clicks. Points are in the
/// view's own coordinates, y down. The callbacks about sectors and clicks may destroy the view. Main thread.
class MouseTrackingNSView {
 public:
  using SectorIndex = std::optional<std::size_t>;

  /// The layout may have more sectors than there are items.
  MouseTrackingNSView(Haptics& haptics, Pointer& pointer, const RingLayout& layout, std::size_t itemCount)
      : haptics_(haptics), pointer_(pointer), layout_(layout), itemCount_(itemCount) {}

  bool innerCircleHighlightsFirstSector = false;
  bool hapticFeedbackEnabled = true;

  std::function<void(Point)> onPointerLocationUpdate;
  std::function<void(SectorIndex)> onHover;
  /// A click on an item's sector.
  std::function<void(std::size_t)> onSelect;
  /// A click anywhere else.
  std::function<void()> onDismiss;

  const RingLayout& layout() const { return layout_; }
  std::size_t itemCount() const { return itemCount_; }

  /// Every point outside the hub belongs to a sector, at any distance.
  SectorIndex hoverSectorIndex(Point at) const;

  void mouseMoved(Point location);
  /// `windowLocation` is the pointer's location outside the event stream.
  void mouseEntered(Point windowLocation);
  void mouseExited();
  void cursorUpdate(Point location);
  /// Calls `onSelect` or `onDismiss`.
  void mouseDown(Point location);

 private:
  void hover(SectorIndex index);

  Haptics& haptics_;
  Pointer& pointer_;
  RingLayout layout_;
  std::size_t itemCount_;
  /// The sector under the pointer, for haptic ticks; the highlight differs from it after a step by key.
  SectorIndex lastHoveredSectorIndex_;
  std::optional<CursorShape> cursor_;
};

}  // namespace rondora
