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
  /// With a window manager that answers, or does not know how to.
  static constexpr std::chrono::milliseconds kPatience{200};
  /// With one whose answers are late: it is stuck, or gets no processor on a busy machine.
  static constexpr std::chrono::milliseconds kPatienceWhileBusy{2000};

  /// `connection` must outlive the object.
  explicit WindowManagerSync(const X11Connection& connection);

  /// Waits until the condition holds, which is tried each time the window manager has handled all requests so far;
  /// false when the time is over.
  bool until(const std::function<bool()>& condition) const;

 private:
  using Moment = std::chrono::steady_clock::time_point;

  /// False when none came in time.
  bool awaitAnswer(Moment deadline) const;
  bool takeAnswer() const;

  const X11Connection& connection_;
  xcb_window_t window_;
};

}  // namespace rondora::x11
