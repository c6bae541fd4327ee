#include "pie/controller/pie_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "pie/picture/ring_picture.h"

namespace rondora {
namespace {

constexpr double kFrameInterval = 0.016;  // seconds
constexpr double kFrameTolerance = 0.002;
/// Of the opening animation's duration, so that a menu without animation highlights at once.
constexpr double kFadeShare = 0.6;
constexpr double kMaxFade = 0.12;  // seconds

}  // namespace

PieView::PieView(const Ports& ports, Point center, const RingLayout& layout, std::size_t itemCount,
                 const PieMenuHighlightState& highlight, OpeningAnimation animation)
    : ports_(ports),
      frame_(squareAround(center, layout.halfSide())),
      highlight_(highlight),
      tracking_(ports.haptics, ports.pointer, layout, itemCount),
      animation_(animation),
      fade_(ring_layers::isCrowded(itemCount) ? 0 : itemCount, std::min(kFadeShare * animation.duration, kMaxFade)) {
  panel_ = ports_.overlayPanels.makePanel(kPanelStyle, frame_, *this);
}

PieView::~PieView() = default;

void PieView::setPicture(Picture picture) { panel_->setPicture(std::move(picture)); }

void PieView::open() {
  openedAt_ = ports_.clock.uptime();
  const AppearancePhase first = animation_.phase(0);
  panel_->setAppearancePhase(first.scale, first.opacity);
  panel_->display();
  panel_->orderFrontRegardless();
  if (!animation_.isOver(0)) ensureAnimating();
  panel_->makeKey();
}

void PieView::ensureAnimating() {
  if (animationTimer_) return;
  lastFrameAt_ = ports_.clock.uptime();
  animationTimer_ =
      ports_.mainQueue.timer(kFrameInterval, kFrameTolerance, weakSelf_.bind([](PieView& self) { self.animate(); }));
}

void PieView::animate() {
  const double now = ports_.clock.uptime();
  const AppearancePhase phase = animation_.phase(now - openedAt_);
  panel_->setAppearancePhase(phase.scale, phase.opacity);
  advanceFade(now - lastFrameAt_);
  lastFrameAt_ = now;
  panel_->display();
  if (animation_.isOver(now - openedAt_) && fade_.isAtRest(highlightedItem())) animationTimer_.reset();
}

std::optional<std::size_t> PieView::highlightedItem() const {
  const auto index = highlight_.highlightedIndex();
  return index && *index < tracking_.itemCount() ? index : std::nullopt;
}

void PieView::advanceFade(double seconds) {
  fade_.advance(highlightedItem(), seconds, [this](std::size_t index, double amount) {
    panel_->setLayerState(ring_layers::sector(index),
                          std::lerp(ring_layers::kNormal, ring_layers::kHighlighted, amount));
  });
}

/// Draws the first frame of the fade immediately.
void PieView::showHighlight() {
  const auto highlighted = highlightedItem();
  const std::size_t itemCount = tracking_.itemCount();
  if (ring_layers::isCrowded(itemCount)) {
    panel_->setLayerState(ring_layers::kHighlight, ring_layers::titleState(highlighted));
  }
  panel_->setLayerState(ring_layers::figure(itemCount), ring_layers::figureState(highlighted));
  panel_->setLayerState(ring_layers::title(itemCount), ring_layers::titleState(highlighted));
  if (!animationTimer_) advanceFade(kFrameInterval);
  panel_->display();
  if (!fade_.isAtRest(highlighted)) ensureAnimating();
}

void PieView::pointerMoved(Point location) { tracking_.mouseMoved(location); }

void PieView::pointerEntered() {
  if (panel_->isVisible()) tracking_.mouseEntered(panel_->mouseLocationOutsideOfEventStream());
}

void PieView::pointerExited() { tracking_.mouseExited(); }

void PieView::mouseDown(Point location) { tracking_.mouseDown(location); }

void PieView::panelLost() {
  if (const auto lost = onLost) lost();
}

}  // namespace rondora
