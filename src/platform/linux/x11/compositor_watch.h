#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <utility>

#include "base/observable.h"
#include "platform/linux/x11/x_connection.h"

namespace rondora::x11 {

/// Whether somebody composes the windows of the screen, so that transparent pixels show what is beneath.
class CompositorWatch {
 public:
  explicit CompositorWatch(XConnection& connection);

  bool isComposited() const { return isComposited_; }
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) {
    return changed_.subscribe(std::move(observer));
  }

 private:
  bool handleEvent(const xcb_generic_event_t& event);

  xcb_atom_t selection_;
  std::uint8_t ownerChangeEvent_ = 0;
  bool isComposited_ = false;
  Signal<> changed_;
  Subscription eventHandler_;
};

}  // namespace rondora::x11
