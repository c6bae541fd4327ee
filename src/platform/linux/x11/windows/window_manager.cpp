#include "platform/linux/x11/windows/window_manager.h"

#include <algorithm>

namespace rondora::x11 {

// A window manager that ended may leave the property on the root window, but not the window that it names.
bool hasWindowManager(const X11Connection& connection) {
  const xcb_atom_t name = connection.atom("_NET_SUPPORTING_WM_CHECK");
  const auto window = connection.property32(connection.root(), name, XCB_ATOM_WINDOW);
  return !window.empty() && connection.property32(window.front(), name, XCB_ATOM_WINDOW) == window;
}

bool managerSupports(const X11Connection& connection, std::string_view atom) {
  if (!hasWindowManager(connection)) return false;
  const auto supported = connection.property32(connection.root(), connection.atom("_NET_SUPPORTED"), XCB_ATOM_ATOM);
  return std::ranges::find(supported, connection.atom(atom)) != supported.end();
}

}  // namespace rondora::x11
