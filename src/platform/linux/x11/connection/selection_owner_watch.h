#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string_view>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Watches whether a selection has an owner that announces a service of the screen (ICCCM 2.8): "_NET_WM_CM" for the
/// compositor, "_NET_SYSTEM_TRAY" for the tray. Main thread.
class SelectionOwnerWatch {
 public:
  /// `name` without the screen's number.
  SelectionOwnerWatch(X11Connection& connection, std::string_view name);

  bool hasOwner() const { return hasOwner_; }
  /// Called when the selection gets its first owner or loses the last.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) {
    return changed_.subscribe(std::move(observer));
  }

 private:
  void selectOwnerChanges();
  bool handleEvent(const xcb_generic_event_t& event);

  X11Connection& connection_;
  xcb_atom_t selection_;
  std::uint8_t ownerChangeEvent_ = 0;
  bool hasOwner_ = false;
  Signal<> changed_;
  Subscription eventHandler_;
};

}  // namespace rondora::x11
