#pragma once

#include <cstddef>
#include <memory>
#include <optional>

#include "base/display_list.h"
#include "base/observable.h"
#include "base/weak_self.h"
#include "pie/controller/highlight_fade.h"
#include "pie/controller/mouse_tracking_ns_view.h"
#include "pie/controller/opening_animation.h"
#include "pie/controller/pie_menu_highlight_state.h"
#include "platform/clock.h"
#include "platform/main_queue.h"
#include "platform/overlay_panel.h"

namespace rondora {

/// One panel with the ring in it: forwards pointer events to the tracking view, draws the highlight and the opening
/// animation. The destructor orders the panel out; any callback may destroy the view. Main thread.
class PieView final : private OverlayPanelSink {
 public:
  struct Ports {
    OverlayPanels& overlayPanels;
    Pointer& pointer;
    Haptics& haptics;
    MainQueue& mainQueue;
    Clock& clock;
  };

  /// Lies above full-screen applications and panels, is shown on whichever space is current, takes the keyboard without
  /// becoming the main window, and leaves window cycling and the active application alone.
  static constexpr OverlayPanelStyle kPanelStyle{
      .windowLevel = OverlayPanelStyle::kScreenSaverLevel,
      .collectionBehavior = OverlayPanelStyle::kMoveToActiveSpace | OverlayPanelStyle::kTransient |
                            OverlayPanelStyle::kIgnoresCycle | OverlayPanelStyle::kFullScreenAuxiliary,
      .isBorderless = true,
      .isFloating = true,
      .nonactivating = true,
      .canBecomeKey = true,
      .canBecomeMain = false,
      .hasShadow = false,
      .isOpaque = false,
      .isAnimated = false,
      .hidesOnDeactivate = false,
      .hasFixedAppearance = true};

  /// `center` is the ring's, in the coordinate space of the screens. `highlight` must outlive the view.
  PieView(const Ports& ports, Point center, const RingLayout& layout, std::size_t itemCount,
          const PieMenuHighlightState& highlight, OpeningAnimation animation);
  ~PieView() override;

  /// Once, before `open`. Separate from the constructor so that the panel's snapshot of the screen arrives while the
  /// picture is made.
  void setPicture(Picture picture);

  MouseTrackingNSView& tracking() { return tracking_; }
  /// In the coordinate space of the screens.
  const Rect& frame() const { return frame_; }
  Point screenPoint(Point location) const { return frame_.origin + location; }

  void open();
  bool isVisible() const { return panel_->isVisible(); }
  /// Icons may have been decoded.
  void refreshIcons() { panel_->refreshIcons(); }
  /// The highlight has changed.
  void showHighlight();

  std::function<void()> onLost;

 private:
  void pointerMoved(Point location) override;
  void pointerEntered() override;
  void pointerExited() override;
  void mouseDown(Point location) override;
  void panelLost() override;

  std::optional<std::size_t> highlightedItem() const;
  void advanceFade(double seconds);
  void ensureAnimating();
  void animate();

  Ports ports_;
  Rect frame_;
  const PieMenuHighlightState& highlight_;
  MouseTrackingNSView tracking_;
  OpeningAnimation animation_;
  HighlightFade fade_;
  double openedAt_ = 0;
  double lastFrameAt_ = 0;
  std::unique_ptr<OverlayPanel> panel_;
  /// Runs during an animation.
  Subscription animationTimer_;
  WeakSelf<PieView> weakSelf_{this};
};

}  // namespace rondora
