#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/linux/application_catalogue.h"
#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// A client window as it was when its properties were read.
struct WindowInfo {
  xcb_window_t window = XCB_WINDOW_NONE;
  /// 0 when unknown.
  std::int32_t processIdentifier = 0;
  WindowIdentity identity;
  std::string title;
  /// Nothing when it is on all desktops, or there are none.
  std::optional<std::uint32_t> desktop;
  bool isIconified = false;
  /// False for panels, desktops and transient helpers, and for windows kept out of task lists.
  bool isOrdinary = true;
};

/// The pending replies to the property requests of one window.
using WindowPropertyCookies = std::array<xcb_get_property_cookie_t, 9>;

/// Interns the atoms that the functions below need, in one round trip.
void internWindowAtoms(const X11Connection& connection);
/// Sends the property requests of a window. Does not wait.
WindowPropertyCookies requestWindowProperties(const X11Connection& connection, xcb_window_t window);
/// Waits for the replies. Nothing when the window is gone. The process is the one that the window names; the executable
/// is left empty.
std::optional<WindowInfo> readWindowProperties(const X11Connection& connection, xcb_window_t window,
                                               const WindowPropertyCookies& cookies);

}  // namespace rondora::x11
