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

/// One panel with the ring in it: hands the pointer to the tracking view, shows the highlight and the opening
/// animation. Ordered out when destroyed, which any of its callbacks may do. Main thread.
class PieView final : private OverlayPanelSink {
 public:
  struct Ports {
    OverlayPanels& overlayPanels;
    Pointer& pointer;
    Haptics& haptics;
    MainQueue& mainQueue;
    Clock& clock;
  };

  /// `frame` in the coordinate space of the screens, as large as the picture will be.
  PieView(const Ports& ports, const Rect& frame, std::size_t itemCount, OpeningAnimation animation);
  ~PieView() override;

  /// Once, before `open`. Apart from the constructor, because the panel can find out what lies beneath it while the
  /// picture is made.
  void setPicture(Picture picture);

  MouseTrackingNSView& tracking() { return tracking_; }
  /// In the coordinate space of the screens.
  const Rect& frame() const { return frame_; }
  Point screenPoint(Point location) const { return frame_.origin + location; }

  void open();
  bool isVisible() const { return panel_->isVisible(); }
  void showHighlight(std::optional<std::size_t> highlighted);

  std::function<void()> onLost;

 private:
  void pointerMoved(Point location) override;
  void pointerEntered() override;
  void pointerExited() override;
  void mouseDown(Point location) override;
  void panelLost() override;

  void advanceFade(double seconds);
  void ensureAnimating();
  void animate();

  Ports ports_;
  Rect frame_;
  std::size_t itemCount_;
  MouseTrackingNSView tracking_;
  OpeningAnimation animation_;
  HighlightFade fade_;
  double openedAt_ = 0;
  double lastFrameAt_ = 0;
  std::unique_ptr<OverlayPanel> panel_;
  /// Runs while something moves.
  Subscription animationTimer_;
  WeakSelf<PieView> weakSelf_{this};
};

}  // namespace rondora
