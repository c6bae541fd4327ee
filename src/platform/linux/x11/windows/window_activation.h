#pragma once

#include <xcb/xcb.h>

#include <span>

#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/windows/window_properties.h"

namespace rondora::x11 {

/// Brings the window to the user: switches to its desktop, deiconifies, raises and focuses it. A window that is gone is
/// ignored.
void activateWindow(const X11Connection& connection, const WindowInfo& target, xcb_window_t currentlyActive);
/// Deiconifies the window without giving it the focus. A window that is gone is ignored.
void restoreWindow(const X11Connection& connection, xcb_window_t window);
/// Asks the window manager to iconify the windows. False without one that has iconified windows, and for no windows.
/// Windows that are gone are ignored.
bool iconifyWindows(const X11Connection& connection, std::span<const xcb_window_t> windows);
/// Asks the application to close the windows, which it may refuse. False when no window can be asked.
bool closeWindows(const X11Connection& connection, std::span<const xcb_window_t> windows);

}  // namespace rondora::x11
