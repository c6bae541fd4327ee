#pragma once

#include <xcb/xcb.h>

#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/windows/window_properties.h"

namespace rondora::x11 {

/// Whether a window manager that follows EWMH runs. Two round trips.
bool hasWindowManager(const X11Connection& connection);
/// Brings the window to the user: switches to its desktop, deiconifies, raises and focuses it. A window that is gone is
/// ignored.
void activateWindow(const X11Connection& connection, const WindowInfo& target, xcb_window_t currentlyActive);
/// Deiconifies the window without giving it the focus. A window that is gone is ignored.
void restoreWindow(const X11Connection& connection, xcb_window_t window);

}  // namespace rondora::x11
