#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/main_queue.h"
#include "platform/overlay_panel.h"
#include "platform/pointer.h"

namespace rondora {

/// One overlay panel as the user sees it.
struct PanelRecord {
  OverlayPanelSink& sink;
  Rect frame;
  Picture picture = {};
  std::vector<double> layerStates = {};
  double scale = 1;
  double opacity = 1;
  int displayCount = 0;
  int refreshCount = 0;
  bool isVisible = false;
  bool isKey = false;
  bool isGone = false;
};

/// The overlay's panels and the pointer. The panel that holds the grab receives every motion.
class FakeOverlayPanels final : public OverlayPanels, public Pointer {
 public:
  explicit FakeOverlayPanels(MainQueue& queue) : queue_(queue) {}

  std::unique_ptr<OverlayPanel> makePanel(const OverlayPanelStyle& /*style*/, const Rect& frame,
                                          OverlayPanelSink& sink) override {
    panels.push_back(std::make_shared<PanelRecord>(PanelRecord{sink, frame}));
    return std::make_unique<Panel>(*this, panels.back());
  }
  void prerender(Picture picture) override { prerendered.push_back(std::move(picture)); }

  Point location() const override { return location_; }
  void setCursor(CursorShape shape) override { cursors.push_back(shape); }

  /// The user moves the pointer; `location` is in the coordinate space of the screens.
  void moveTo(Point location) {
    location_ = location;
    if (const PanelRecord* panel = keyPanel()) panel->sink.pointerMoved(location - panel->frame.origin);
  }
  /// The user presses the mouse button at the pointer.
  void click() const {
    if (const PanelRecord* panel = keyPanel()) panel->sink.mouseDown(location_ - panel->frame.origin);
  }

  /// The panel that holds keyboard and pointer now, or null.
  const PanelRecord* keyPanel() const {
    const auto found = std::ranges::find(panels, true, &PanelRecord::isKey);
    return found == panels.end() ? nullptr : found->get();
  }
  bool holdsKeyboard() const { return keyPanel() != nullptr; }

  /// Pictures requested for pre-rendering.
  std::vector<Picture> prerendered;
  /// Every panel ever made, oldest first; a test may remove those that are gone.
  std::vector<std::shared_ptr<PanelRecord>> panels;
  std::vector<CursorShape> cursors;
  /// Another program holds the keyboard: the panel reports `panelLost` on a later turn.
  bool refusesGrab = false;
  /// Where the user moves the pointer between the mapping of a panel and its grab.
  std::optional<Point> flick;

 private:
  class Panel final : public OverlayPanel {
   public:
    Panel(FakeOverlayPanels& owner, std::shared_ptr<PanelRecord> record) : owner_(owner), record_(std::move(record)) {}
    ~Panel() override {
      record_->isVisible = record_->isKey = false;
      record_->isGone = true;
    }
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    void setPicture(Picture picture) override {
      record_->layerStates.assign(picture.layers.size(), 0);
      record_->picture = std::move(picture);
    }
    void setLayerState(std::size_t layer, double state) override { record_->layerStates.at(layer) = state; }
    void refreshIcons() override { ++record_->refreshCount; }
    void setAppearancePhase(double scale, double opacity) override {
      record_->scale = scale;
      record_->opacity = opacity;
    }
    void display() override { ++record_->displayCount; }
    void orderFrontRegardless() override { record_->isVisible = true; }
    void makeKey() override {
      if (owner_.refusesGrab) {
        return owner_.queue_.async([record = record_] {
          if (!record->isGone) record->sink.panelLost();
        });
      }
      for (const auto& other : owner_.panels) other->isKey = false;
      record_->isKey = true;
      if (owner_.flick) owner_.location_ = *std::exchange(owner_.flick, std::nullopt);
      record_->sink.pointerMoved(mouseLocationOutsideOfEventStream());
    }
    bool isVisible() const override { return record_->isVisible; }
    Point mouseLocationOutsideOfEventStream() const override { return owner_.location() - record_->frame.origin; }

   private:
    FakeOverlayPanels& owner_;
    std::shared_ptr<PanelRecord> record_;
  };

  MainQueue& queue_;
  Point location_;
};

}  // namespace rondora
