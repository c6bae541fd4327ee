#include "platform/linux/x11/windows/window_activation.h"

#include <algorithm>

#include "platform/linux/x11/windows/window_manager.h"

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kSourcePager = 2;
constexpr std::uint32_t kIconicState = 3;  // ICCCM 4.1.4

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

/// What the window manager would do (ICCCM 4.2.8.1). False when the window cannot be asked, or is gone.
bool askToClose(const X11Connection& connection, xcb_window_t window) {
  const xcb_atom_t deletion = connection.atom("WM_DELETE_WINDOW");
  const auto protocols = connection.property32(window, connection.atom("WM_PROTOCOLS"), XCB_ATOM_ATOM);
  if (std::ranges::find(protocols, deletion) == protocols.end()) return false;
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = connection.atom("WM_PROTOCOLS");
  message.data.data32[0] = deletion;
  message.data.data32[1] = connection.lastEventTime();
  ignoreErrors(connection, xcb_send_event_checked(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                                                  reinterpret_cast<const char*>(&message)));
  return true;
}

/// openbox 3.6 keeps shaded windows iconic and follows no request to iconify one.
void unshadeIfIconic(const X11Connection& connection, xcb_window_t window) {
  const auto state = connection.property32(window, connection.atom("WM_STATE"), XCB_ATOM_ANY);
  const auto states = connection.property32(window, connection.atom("_NET_WM_STATE"), XCB_ATOM_ATOM);
  const auto has = [&](const char* name) { return std::ranges::find(states, connection.atom(name)) != states.end(); };
  if (state.empty() || state.front() != kIconicState) return;
  if (!has("_NET_WM_STATE_SHADED") || has("_NET_WM_STATE_HIDDEN")) return;
  connection.sendToRoot(window, connection.atom("_NET_WM_STATE"),
                        {0, connection.atom("_NET_WM_STATE_SHADED"), XCB_ATOM_NONE, kSourcePager, 0});
}

}  // namespace

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

// i3 4.22 has no iconified windows and states no such action.
bool iconifyWindows(const X11Connection& connection, std::span<const xcb_window_t> windows) {
  if (windows.empty() || !managerSupports(connection, "_NET_WM_ACTION_MINIMIZE")) return false;
  for (const xcb_window_t window : windows) {
    unshadeIfIconic(connection, window);
    connection.sendToRoot(window, connection.atom("WM_CHANGE_STATE"), {kIconicState, 0, 0, 0, 0});
  }
  connection.flush();
  return true;
}

bool closeWindows(const X11Connection& connection, std::span<const xcb_window_t> windows) {
  const bool closesThem = managerSupports(connection, "_NET_CLOSE_WINDOW");
  bool isAsked = false;
  for (const xcb_window_t window : windows) {
    if (closesThem) {
      connection.sendToRoot(window, connection.atom("_NET_CLOSE_WINDOW"),
                            {connection.lastEventTime(), kSourcePager, 0, 0, 0});
    }
    isAsked = closesThem || askToClose(connection, window) || isAsked;
  }
  connection.flush();
  return isAsked;
}

}  // namespace rondora::x11
