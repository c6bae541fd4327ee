#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/application_catalogue.h"
#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// A window of an application as it was when it was asked for.
struct WindowInfo {
  xcb_window_t window = XCB_WINDOW_NONE;
  /// 0 when unknown.
  std::int32_t processIdentifier = 0;
  WindowIdentity identity;
  std::string title;
  /// Nothing when it is on all desktops, or there are none.
  std::optional<std::uint32_t> desktop;
  bool isIconified = false;
  /// Neither a panel, a desktop, a passing helper, nor kept out of task lists.
  bool isOrdinary = true;
};

/// Straight 0xAARRGGBB pixels, row by row.
struct WindowIcon {
  std::vector<std::uint32_t> pixels;
  int width = 0;
  int height = 0;
};

/// The windows of all applications, as the window manager tells of them (EWMH), else as the server does. Windows may
/// vanish at any time; what is asked about a vanished one is answered with nothing. Main thread.
class X11WindowList {
 public:
  /// `connection` outlives this.
  explicit X11WindowList(X11Connection& connection);

  /// All windows, topmost first, in three round trips.
  std::vector<WindowInfo> windows() const;
  std::optional<WindowInfo> describe(xcb_window_t window) const;
  /// The active window, else the one that holds the input focus; 0 for none.
  xcb_window_t activeWindow() const;
  /// The smallest icon of at least 128 pixels, else the largest.
  std::optional<WindowIcon> icon(xcb_window_t window) const;

  /// Shows an iconified window again, without giving it the focus.
  void restore(xcb_window_t window);
  /// Brings the window to the user: goes to its desktop, restores it, raises it and gives it the focus.
  void activate(const WindowInfo& target, xcb_window_t currentlyActive);

 private:
  bool hasWindowManager() const;
  std::vector<xcb_window_t> managedWindows() const;
  std::vector<xcb_window_t> unmanagedWindows() const;
  std::vector<WindowInfo> describeAll(std::span<const xcb_window_t> windows) const;
  xcb_window_t focusedWindow() const;
  void raiseAndFocus(xcb_window_t window);

  X11Connection& connection_;
  bool hasResourceExtension_ = false;
};

}  // namespace rondora::x11
