#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <functional>

#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Waits until the window manager has handled the requests sent to it: a window manager handles the requests of a
/// client in order, so its answer to a last one ends the wait. Reads the events of the connection. One worker thread.
class WindowManagerSync {
 public:
  static constexpr std::chrono::milliseconds kPatience{200};

  /// `connection` must outlive the object.
  explicit WindowManagerSync(const X11Connection& connection);

  /// Waits until the condition holds, which is tried each time the window manager has handled all requests so far;
  /// false when the time is over.
  bool until(const std::function<bool()>& condition, std::chrono::milliseconds patience = kPatience) const;

 private:
  using Moment = std::chrono::steady_clock::time_point;

  void awaitAnswer(Moment deadline) const;
  bool takeAnswer() const;

  const X11Connection& connection_;
  xcb_window_t window_;
};

}  // namespace rondora::x11
