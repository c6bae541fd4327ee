#include "pie/pie_view.h"

#include "pie/ring_picture.h"

namespace rondora {
namespace {

constexpr double kFrameInterval = 1.0 / 60;
constexpr double kFrameTolerance = 0.002;

}  // namespace

PieView::PieView(const Ports& ports, const Rect& frame, Picture picture, std::size_t itemCount)
    : ports_(ports), frame_(frame), itemCount_(itemCount), tracking_(ports.haptics, ports.pointer) {
  panel_ = ports_.overlayPanels.makePanel(OverlayPanelStyle{}, frame_, *this);
  panel_->setPicture(std::move(picture));
}

PieView::~PieView() = default;

void PieView::open(OpeningAnimation animation) {
  animation_ = animation;
  openedAt_ = ports_.clock.uptime();
  const AppearancePhase first = animation_.phase(0);
  panel_->setAppearancePhase(first.scale, first.opacity);
  panel_->display();
  panel_->orderFrontRegardless();
  if (!animation_.isOver(0)) {
    animationTimer_ =
        ports_.mainQueue.timer(kFrameInterval, kFrameTolerance, weakSelf_.bind([](PieView& self) { self.animate(); }));
  }
  panel_->makeKey();
}

void PieView::animate() {
  const double elapsed = ports_.clock.uptime() - openedAt_;
  const AppearancePhase phase = animation_.phase(elapsed);
  panel_->setAppearancePhase(phase.scale, phase.opacity);
  panel_->display();
  if (animation_.isOver(elapsed)) animationTimer_.reset();
}

void PieView::showHighlight(std::optional<std::size_t> former, std::optional<std::size_t> present) {
  setSectorState(former, ring_layers::kNormal);
  setSectorState(present, ring_layers::kHighlighted);
  const bool hasTitle = present && *present < itemCount_;
  panel_->setLayerState(ring_layers::title(itemCount_), ring_layers::titleState(hasTitle ? present : std::nullopt));
  panel_->display();
}

void PieView::setSectorState(std::optional<std::size_t> index, std::size_t state) {
  if (index && *index < itemCount_) panel_->setLayerState(ring_layers::sector(*index), state);
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
