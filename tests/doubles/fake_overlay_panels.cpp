#include "doubles/fake_overlay_panels.h"

#include <algorithm>
#include <utility>

namespace rondora {

class FakeOverlayPanel final : public OverlayPanel {
 public:
  FakeOverlayPanel(FakeOverlayPanels& owner, std::shared_ptr<PanelRecord> record, OverlayPanelSink& sink)
      : owner_(owner), record_(std::move(record)), sink_(sink) {}
  ~FakeOverlayPanel() override {
    record_->isVisible = record_->isKey = false;
    record_->isGone = true;
    std::erase_if(owner_.living_, [this](const auto& living) { return living.record == record_; });
  }

  void setPicture(Picture picture) override {
    record_->layerStates.assign(picture.layers.size(), 0);
    record_->picture = std::move(picture);
  }
  void setLayerState(std::size_t layer, double state) override { record_->layerStates.at(layer) = state; }
  void setAppearancePhase(double scale, double opacity) override {
    record_->scale = scale;
    record_->opacity = opacity;
  }
  void display() override { ++record_->displayCount; }
  void orderFrontRegardless() override { record_->isVisible = true; }
  void makeKey() override;
  bool isVisible() const override { return record_->isVisible; }
  Point mouseLocationOutsideOfEventStream() const override { return owner_.location() - record_->frame.origin; }

 private:
  FakeOverlayPanels& owner_;
  std::shared_ptr<PanelRecord> record_;
  OverlayPanelSink& sink_;
};

void FakeOverlayPanel::makeKey() {
  if (!owner_.refusesGrab) {
    for (auto& other : owner_.living_) other.record->isKey = false;
    record_->isKey = true;
    if (owner_.flick) owner_.location_ = *std::exchange(owner_.flick, std::nullopt);
    return sink_.pointerMoved(mouseLocationOutsideOfEventStream());
  }
  owner_.queue_.async([weak = std::weak_ptr<PanelRecord>(record_), sink = &sink_] {
    if (const auto record = weak.lock(); record && !record->isGone) sink->panelLost();
  });
}

std::unique_ptr<OverlayPanel> FakeOverlayPanels::makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                                           OverlayPanelSink& sink) {
  auto record = std::make_shared<PanelRecord>();
  record->style = style;
  record->frame = frame;
  panels.push_back(record);
  living_.push_back({record, &sink});
  return std::make_unique<FakeOverlayPanel>(*this, record, sink);
}

FakeOverlayPanels::Owner* FakeOverlayPanels::keyOwner() {
  const auto found = std::find_if(living_.begin(), living_.end(),
                                  [](const Owner& owner) { return owner.record->isVisible && owner.record->isKey; });
  return found == living_.end() ? nullptr : &*found;
}

const PanelRecord* FakeOverlayPanels::keyPanel() const {
  const auto* owner = const_cast<FakeOverlayPanels*>(this)->keyOwner();
  return owner == nullptr ? nullptr : owner->record.get();
}

void FakeOverlayPanels::moveTo(Point location) {
  const Point before = std::exchange(location_, location);
  const Owner* found = keyOwner();
  if (found == nullptr) return;
  const Owner owner = *found;
  const Rect& frame = owner.record->frame;
  const bool wasInside = frame.contains(before);
  const bool isInside = frame.contains(location);
  if (!wasInside && isInside) owner.sink->pointerEntered();
  if (wasInside && !isInside) owner.sink->pointerExited();
  if (!owner.record->isGone) owner.sink->pointerMoved(location - frame.origin);
}

void FakeOverlayPanels::click() {
  const Owner* found = keyOwner();
  if (found == nullptr) {
    ++clicksOnDesktop;
    return;
  }
  const Owner owner = *found;
  owner.sink->mouseDown(location_ - owner.record->frame.origin);
}

}  // namespace rondora
