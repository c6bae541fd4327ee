#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/main_queue.h"
#include "platform/overlay_panel.h"
#include "platform/pointer.h"

namespace rondora {

/// One overlay panel as the user would have seen it.
struct PanelRecord {
  OverlayPanelStyle style;
  Rect frame;
  Picture picture;
  std::vector<double> layerStates;
  double scale = 1;
  double opacity = 1;
  int displayCount = 0;
  bool isVisible = false;
  bool isKey = false;
  bool isGone = false;
};

/// The overlay's panels and the pointer, which the panel in possession of the grab follows wherever it goes.
class FakeOverlayPanels final : public OverlayPanels, public Pointer {
 public:
  explicit FakeOverlayPanels(MainQueue& queue) : queue_(queue) {}

  std::unique_ptr<OverlayPanel> makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                          OverlayPanelSink& sink) override;
  void warmUp(Picture picture) override { warmedUp.push_back(std::move(picture)); }

  Point location() const override { return location_; }
  void setCursor(CursorShape shape) override { cursors.push_back(shape); }

  /// The user moves the pointer; `location` is in the coordinate space of the screens.
  void moveTo(Point location);
  /// The user presses the mouse button where the pointer is.
  void click();

  /// The panel that holds keyboard and pointer now, or null.
  const PanelRecord* keyPanel() const;
  bool holdsKeyboard() const { return keyPanel() != nullptr; }

  /// Pictures that were asked to be made ready.
  std::vector<Picture> warmedUp;
  /// Every panel ever made, oldest first.
  std::vector<std::shared_ptr<PanelRecord>> panels;
  std::vector<CursorShape> cursors;
  /// Clicks that reached what lies beneath.
  int clicksOnDesktop = 0;
  /// Another program holds the keyboard: the panel reports on a later turn that it is lost.
  bool refusesGrab = false;
  /// Where the user moves the pointer after a panel is on screen and before it has the pointer.
  std::optional<Point> flick;

 private:
  friend class FakeOverlayPanel;
  struct Owner {
    std::shared_ptr<PanelRecord> record;
    OverlayPanelSink* sink = nullptr;
  };

  Owner* keyOwner();

  MainQueue& queue_;
  Point location_;
  std::vector<Owner> living_;
};

}  // namespace rondora
