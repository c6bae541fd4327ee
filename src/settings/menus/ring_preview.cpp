#include "settings/menus/ring_preview.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "pie/geometry/sector_geometry.h"
#include "pie/picture/ring_picture.h"

namespace rondora {
namespace {

/// A press that moves less is a click.
constexpr double kDragDistance = 5;  // points

double length(Point point) { return std::hypot(point.x, point.y); }

}  // namespace

RingPreview::RingPreview(Services services) : services_(std::move(services)) { refresh(); }

void RingPreview::refresh() {
  // The wheel goes on: each of its turns changes the document.
  if (drag_ != Drag::wheel) drag_ = Drag::none;
  show({});
}

void RingPreview::show(const std::vector<std::size_t>& order) {
  ring_ = services_.ring(order);
  if (hovered_ && *hovered_ >= ring_.itemCount) hovered_.reset();
  changed_.send();
}

std::optional<std::size_t> RingPreview::highlighted() const {
  if (drag_ == Drag::item) return draggedTo_;
  if (hovered_) return hovered_;
  const auto chosen = services_.chosen ? services_.chosen() : std::nullopt;
  return chosen && *chosen < ring_.itemCount ? chosen : std::nullopt;
}

std::vector<double> RingPreview::states() const {
  std::vector<double> states(ring_.picture.layers.size(), 0);
  const auto set = [&states](std::size_t layer, double state) {
    if (layer < states.size()) states[layer] = state;
  };
  const auto lit = highlighted();
  if (ring_layers::isCrowded(ring_.itemCount)) {
    set(ring_layers::kHighlight, ring_layers::titleState(lit));
  } else {
    if (lit) set(ring_layers::sector(*lit), ring_layers::kHighlighted);
    // What is being edited stays visible beneath the pointer's own highlight.
    const auto chosen = services_.chosen ? services_.chosen() : std::nullopt;
    if (drag_ != Drag::item && chosen && *chosen < ring_.itemCount) {
      set(ring_layers::sector(*chosen), ring_layers::kHighlighted);
    }
  }
  set(ring_layers::figure(ring_.itemCount), ring_layers::figureState(lit));
  set(ring_layers::title(ring_.itemCount), ring_layers::titleState(lit));
  return states;
}

std::optional<std::size_t> RingPreview::sectorAt(Point point) const {
  const Point from = offset(point);
  const double radius = length(from);
  if (ring_.itemCount == 0 || radius < ring_.layout.innerRadius || radius > ring_.layout.outerRadius) {
    return std::nullopt;
  }
  const MenuPreviewView view{ring_.itemCount, ring_.layout.rotationDegrees};
  return view.absoluteSectorIndex(std::atan2(from.y, from.x), radius);
}

bool RingPreview::isOnRim(Point point) const {
  return services_.turn && length(offset(point)) > ring_.layout.outerRadius;
}

void RingPreview::setHovered(std::optional<std::size_t> sector) {
  if (sector == hovered_) return;
  hovered_ = sector;
  changed_.send();
}

void RingPreview::press(Point point) {
  pressedAt_ = pointer_ = point;
  if (isOnRim(point)) {
    drag_ = Drag::wheel;
    turnedFrom_ = ring_.layout.rotationDegrees;
    wheel_.emplace(ring_.layout.rotationDegrees, WheelTurn::pointerAngle(point, ring_.layout.center()),
                   ring_.itemCount);
    return;
  }
  const auto sector = sectorAt(point);
  if (!services_.choose || !editsSectors()) return;
  services_.choose(sector);
  if (!sector) return;
  dragged_ = draggedTo_ = *sector;
  drag_ = Drag::pressed;
}

void RingPreview::moveTo(Point point) {
  pointer_ = point;
  switch (drag_) {
    case Drag::none:
      return setHovered(sectorAt(point));
    case Drag::wheel:
      return turnTo(wheel_->rotationDegrees(WheelTurn::pointerAngle(point, ring_.layout.center()),
                                            services_.hapticFeedbackEnabled && services_.hapticFeedbackEnabled(),
                                            services_.haptics));
    case Drag::pressed:
      if (!services_.move || length(point - pressedAt_) < kDragDistance) return;
      drag_ = Drag::item;
      hovered_.reset();
      return dragItem(point);
    case Drag::item:
      return dragItem(point);
  }
}

/// Shows the ring as a release would leave it. Between two sectors the item stays where it is.
void RingPreview::dragItem(Point point) {
  const Point from = offset(point);
  const MenuPreviewView view{ring_.itemCount, ring_.layout.rotationDegrees};
  const auto sector = view.absoluteSectorIndex(std::atan2(from.y, from.x), length(from));
  if (!sector || *sector == draggedTo_) return;
  draggedTo_ = *sector;
  std::vector<std::size_t> order(ring_.itemCount);
  std::iota(order.begin(), order.end(), 0);
  order.erase(order.begin() + static_cast<std::ptrdiff_t>(dragged_));
  order.insert(order.begin() + static_cast<std::ptrdiff_t>(draggedTo_), dragged_);
  show(order);
}

void RingPreview::turnTo(double rotationDegrees) {
  if (std::abs(rotationDegrees - ring_.layout.rotationDegrees) < 0.001) return;
  services_.turn(rotationDegrees);
}

void RingPreview::release() {
  const Drag ended = std::exchange(drag_, Drag::none);
  wheel_.reset();
  if (ended == Drag::item && dragged_ != draggedTo_) services_.move(dragged_, draggedTo_);
  if (ended == Drag::item) refresh();
}

void RingPreview::leave() {
  if (drag_ == Drag::none) setHovered(std::nullopt);
}

bool RingPreview::cancel() {
  const Drag ended = std::exchange(drag_, Drag::none);
  wheel_.reset();
  if (ended == Drag::wheel) turnTo(turnedFrom_);
  if (ended == Drag::item) show({});
  return ended != Drag::none;
}

RingPreview::Cursor RingPreview::cursor() const {
  if (drag_ == Drag::item) return Cursor::drag;
  if (drag_ == Drag::wheel || (drag_ == Drag::none && isOnRim(pointer_))) return Cursor::turn;
  return services_.choose && editsSectors() && sectorAt(pointer_) ? Cursor::choose : Cursor::arrow;
}

void RingPreview::step(int sectors) {
  const auto count = static_cast<int>(ring_.itemCount);
  if (count == 0 || !services_.choose || !editsSectors()) return;
  const auto chosen = services_.chosen ? services_.chosen() : std::nullopt;
  const int from = chosen ? static_cast<int>(*chosen) : (sectors > 0 ? -1 : 0);
  services_.choose(static_cast<std::size_t>(((from + sectors) % count + count) % count));
}

void RingPreview::moveChosen(int places) {
  const auto chosen = services_.chosen ? services_.chosen() : std::nullopt;
  if (!chosen || !services_.move || !editsSectors()) return;
  const int to = static_cast<int>(*chosen) + places;
  if (to < 0 || to >= static_cast<int>(ring_.itemCount)) return;
  services_.move(*chosen, static_cast<std::size_t>(to));
}

void RingPreview::turnBy(int steps) {
  if (!services_.turn) return;
  const auto count = static_cast<std::int64_t>(std::max<std::size_t>(ring_.itemCount, 1));
  const double step = 180.0 / static_cast<double>(count);
  services_.turn(snappedAestheticRotationDegrees(ring_.layout.rotationDegrees + steps * step, count));
}

}  // namespace rondora
