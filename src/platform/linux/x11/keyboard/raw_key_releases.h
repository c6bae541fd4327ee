#pragma once

#include <xcb/xcb.h>

#include <cstdint>

#include "base/observable.h"
#include "platform/linux/x11/connection/callback_list.h"
#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Key releases whichever client they go to, asked for only while somebody listens. Main thread.
class RawKeyReleases {
 public:
  explicit RawKeyReleases(X11Connection& connection);
  ~RawKeyReleases();

  /// Without the extension nobody is ever told.
  bool available() const { return inputExtension_ != 0; }
  /// The extension's major opcode; 0 without it.
  std::uint8_t inputExtension() const { return inputExtension_; }
  /// Tells of every release from this request on, some more than once. The result of the callback does not matter.
  [[nodiscard]] Subscription watch(CallbackList<xcb_keycode_t>::Callback observer);

 private:
  bool handleEvent(const xcb_generic_event_t& event) const;
  void select(std::uint32_t mask) const;

  X11Connection& connection_;
  std::uint8_t inputExtension_ = 0;
  int watchers_ = 0;
  CallbackList<xcb_keycode_t> releases_;
  Subscription eventHandler_;
};

}  // namespace rondora::x11
