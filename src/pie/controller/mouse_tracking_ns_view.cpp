#include "pie/controller/mouse_tracking_ns_view.h"

#include "pie/geometry/sector_geometry.h"

namespace rondora {

MouseTrackingNSView::SectorIndex MouseTrackingNSView::hoverSectorIndex(Point at) const {
  const Point offset = at - layout_.center();
  if (offset.x * offset.x + offset.y * offset.y < layout_.innerRadius * layout_.innerRadius) {
    return innerCircleHighlightsFirstSector ? SectorIndex(0) : std::nullopt;
  }
  return sectorIndexAt(angleFromFirstEdge(offset, layout_.rotationDegrees), layout_.sectorCount);
}

void MouseTrackingNSView::mouseMoved(Point location) {
  if (onPointerLocationUpdate) onPointerLocationUpdate(location);
  cursorUpdate(location);
  hover(hoverSectorIndex(location));
}

void MouseTrackingNSView::hover(SectorIndex index) {
  const bool ticks = index && index != lastHoveredSectorIndex_;
  lastHoveredSectorIndex_ = index;
  if (ticks && hapticFeedbackEnabled) haptics_.perform(HapticPattern::levelChange);
  if (onHover) onHover(index);
}

void MouseTrackingNSView::mouseEntered(Point windowLocation) {
  if (onPointerLocationUpdate) onPointerLocationUpdate(windowLocation);
}

void MouseTrackingNSView::mouseExited() {
  lastHoveredSectorIndex_.reset();
  cursor_.reset();  // whoever has the pointer now sets another
  // Copies: the first callback may destroy the view.
  const auto rest = onPointerLocationUpdate;
  const Point restingPlace = layout_.center();
  if (onHover) onHover(std::nullopt);
  if (rest) rest(restingPlace);
}

void MouseTrackingNSView::cursorUpdate(Point location) {
  const SectorIndex index = hoverSectorIndex(location);
  const CursorShape shape = index && *index < itemCount_ ? CursorShape::pointingHand : CursorShape::arrow;
  if (cursor_ == shape) return;
  cursor_ = shape;
  pointer_.setCursor(shape);
}

void MouseTrackingNSView::mouseDown(Point location) {
  const SectorIndex index = hoverSectorIndex(location);
  if (!index || *index >= itemCount_) {
    if (const auto dismiss = onDismiss) dismiss();
    return;
  }
  if (const auto select = onSelect) select(*index);
}

}  // namespace rondora
