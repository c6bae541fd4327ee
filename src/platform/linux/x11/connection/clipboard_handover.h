#pragma once

#include <xcb/xcb.h>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Asks the clipboard manager to keep what this program has on the clipboard when the program is gone: SAVE_TARGETS, as
/// freedesktop.org describes it (ClipboardManager). The manager fetches the text from the toolkit meanwhile, and takes
/// the clipboard over when the window that asked is gone. Main thread.
class ClipboardHandover {
 public:
  explicit ClipboardHandover(X11Connection& connection);
  ~ClipboardHandover();
  ClipboardHandover(const ClipboardHandover&) = delete;
  ClipboardHandover& operator=(const ClipboardHandover&) = delete;

  /// False where the clipboard is not this program's or there is no manager. Otherwise the events of the connection
  /// have to be handled until `hasEnded`, which it may never do: the manager may hang.
  bool begin();
  /// The clipboard is the manager's now, or the manager refused.
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

}  // namespace rondora::x11
