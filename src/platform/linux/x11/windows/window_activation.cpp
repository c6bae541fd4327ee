#include "platform/linux/x11/windows/window_activation.h"

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kSourcePager = 2;

/// Discards errors as well: the window may be gone.
void ignoreErrors(const X11Connection& connection, xcb_void_cookie_t cookie) {
  xcb_discard_reply(connection.get(), cookie.sequence);
}

void raiseAndFocus(const X11Connection& connection, xcb_window_t window) {
  const std::uint32_t above = XCB_STACK_MODE_ABOVE;
  ignoreErrors(connection, xcb_map_window_checked(connection.get(), window));
  ignoreErrors(connection,
               xcb_configure_window_checked(connection.get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above));
  ignoreErrors(connection, xcb_set_input_focus_checked(connection.get(), XCB_INPUT_FOCUS_POINTER_ROOT, window,
                                                       connection.lastEventTime()));
  connection.flush();
}

}  // namespace

// A window manager that ended may leave the property on the root window, but not the window that it names.
bool hasWindowManager(const X11Connection& connection) {
  const xcb_atom_t name = connection.atom("_NET_SUPPORTING_WM_CHECK");
  const auto window = connection.property32(connection.root(), name, XCB_ATOM_WINDOW);
  return !window.empty() && connection.property32(window.front(), name, XCB_ATOM_WINDOW) == window;
}

void activateWindow(const X11Connection& connection, const WindowInfo& target, xcb_window_t currentlyActive) {
  if (!hasWindowManager(connection)) {
    raiseAndFocus(connection, target.window);
    return;
  }
  const xcb_atom_t desktopAtom = connection.atom("_NET_CURRENT_DESKTOP");
  const auto current = connection.property32(connection.root(), desktopAtom, XCB_ATOM_CARDINAL);
  const xcb_timestamp_t time = connection.lastEventTime();
  // Openbox 3.6 ignores a request for a window of another desktop, so switch there first.
  if (target.desktop && !current.empty() && current.front() != *target.desktop) {
    connection.sendToRoot(connection.root(), desktopAtom, {*target.desktop, time, 0, 0, 0});
  }
  connection.sendToRoot(target.window, connection.atom("_NET_ACTIVE_WINDOW"),
                        {kSourcePager, time, currentlyActive, 0, 0});
  connection.flush();
}

// Mapping asks the window manager to leave the iconic state (ICCCM 4.1.4).
void restoreWindow(const X11Connection& connection, xcb_window_t window) {
  ignoreErrors(connection, xcb_map_window_checked(connection.get(), window));
  connection.flush();
}

}  // namespace rondora::x11
