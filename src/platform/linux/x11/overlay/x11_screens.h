#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/overlay/monitor_layout.h"
#include "platform/main_queue.h"
#include "platform/screens.h"

namespace rondora::x11 {

/// The monitors as RandR reports them; the visible frames exclude the space that desktop panels reserve. Cached until
/// the server reports a change.
class X11Screens : public Screens {
 public:
  X11Screens(X11Connection& connection, MainQueue& mainQueue);

  std::vector<Screen> all() const override;
  /// The primary monitor, else the first.
  std::optional<Screen> main() const override;
  Subscription onParametersChanged(std::function<void()> observer) override {
    return changed_.subscribe(std::move(observer));
  }

 private:
  struct Monitor {
    PixelRect frame;
    bool isPrimary = false;
    friend bool operator==(const Monitor&, const Monitor&) = default;
  };

  bool handleEvent(const xcb_generic_event_t& event);
  void forgetWorkAreas();
  void markMonitorsStale();
  void compareMonitors();
  std::vector<Monitor> readMonitors() const;
  PixelRect readRoot() const;
  bool isAboutPanels(xcb_atom_t property) const;
  WorkAreas readWorkAreas() const;
  std::vector<Strut> readStruts() const;
  /// False when the panel is watched already.
  bool watch(xcb_window_t panel) const;
  Screen screen(const Monitor& monitor) const;
  Rect inPoints(const PixelRect& rect) const;

  X11Connection& connection_;
  MainQueue& mainQueue_;
  std::uint8_t firstRandrEvent_ = 0;
  bool hasMonitorsRequest_ = false;
  PixelRect root_;
  std::vector<Monitor> monitors_;
  bool monitorsAreStale_ = false;
  mutable std::optional<WorkAreas> workAreas_;
  mutable std::set<xcb_window_t> watched_;
  Subscription reading_;
  Signal<> changed_;
  Subscription eventHandler_;
  WeakSelf<X11Screens> weakSelf_{this};
};

}  // namespace rondora::x11
