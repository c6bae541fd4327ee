#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <functional>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Hands this program's clipboard contents to the clipboard manager before the program ends: SAVE_TARGETS of
/// freedesktop.org's ClipboardManager. The manager fetches the text from the toolkit, and takes the clipboard over when
/// the requesting window is gone. Main thread.
class ClipboardHandover {
 public:
  explicit ClipboardHandover(X11Connection& connection);
  ~ClipboardHandover();
  ClipboardHandover(const ClipboardHandover&) = delete;
  ClipboardHandover& operator=(const ClipboardHandover&) = delete;

  /// False when this program does not own the clipboard or no manager runs. On true, handle the connection's events
  /// until `hasEnded`, for a limited time: the manager may hang.
  bool begin();
  /// The manager has taken the clipboard or has refused.
  bool hasEnded() const;

 private:
  bool isOurs() const;
  xcb_window_t ownerOf(xcb_atom_t selection) const;
  bool handleEvent(const xcb_generic_event_t& event);
  void destroyWindow();

  X11Connection& connection_;
  xcb_atom_t clipboard_;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  bool isRefused_ = false;
  Subscription eventHandler_;
};

/// Handles events until the condition holds; false when the limit expires first.
using HandleEventsUntil = std::function<bool(const std::function<bool()>& condition, std::chrono::milliseconds limit)>;

/// Hands the clipboard over and waits for the end, 0.7 seconds at most: a manager that hangs must not keep the program
/// from ending.
void handOverClipboard(X11Connection& connection, const HandleEventsUntil& handleEventsUntil);

}  // namespace rondora::x11
