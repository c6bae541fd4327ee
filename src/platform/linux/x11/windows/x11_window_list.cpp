#include "platform/linux/x11/windows/x11_window_list.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "platform/linux/x11/connection/property_reply.h"

namespace rondora::x11 {
namespace {

/// For panels, docks and helpers; any number but 0 would do.
constexpr std::int64_t kAboveOrdinaryWindows = 3;

struct Cookies {
  xcb_get_geometry_cookie_t geometry;
  xcb_translate_coordinates_cookie_t origin;
  xcb_get_property_cookie_t frameExtents;
  xcb_get_property_cookie_t opacity;
};

using PropertyReply = Reply<xcb_get_property_reply_t>;

Cookies request(const X11Connection& connection, xcb_window_t window) {
  xcb_connection_t* c = connection.get();
  const auto property = [&](const char* name, std::uint32_t length) {
    return xcb_get_property(c, 0, window, connection.atom(name), XCB_ATOM_ANY, 0, length);
  };
  return {xcb_get_geometry(c, window), xcb_translate_coordinates(c, window, connection.root(), 0, 0),
          property("_NET_FRAME_EXTENTS", 4), property("_NET_WM_WINDOW_OPACITY", 1)};
}

WindowListEntry::Alpha alphaOf(const PropertyReply& reply) {
  if (!reply || reply->type == XCB_ATOM_NONE) return std::monostate();
  const auto values = values32(reply.get());
  if (reply->type != XCB_ATOM_CARDINAL || values.empty()) return WindowListEntry::Malformed{};
  return static_cast<double>(values.front()) / 0xFFFFFFFF;
}

/// Left, right, top and bottom; 0 where the window manager sets none.
std::array<double, 4> extentsOf(const PropertyReply& reply) {
  std::array<double, 4> extents{};
  if (reply && reply->type == XCB_ATOM_CARDINAL) std::ranges::copy(values32(reply.get()), extents.begin());
  return extents;
}

/// The window with its frame, in points. Translated: the window's own origin is relative to the frame.
std::optional<Rect> boundsOf(const X11Connection& connection, const Cookies& cookies) {
  xcb_connection_t* c = connection.get();
  const Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(c, cookies.geometry, nullptr));
  const Reply<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(c, cookies.origin, nullptr));
  const auto [left, right, top, bottom] =
      extentsOf(PropertyReply(xcb_get_property_reply(c, cookies.frameExtents, nullptr)));
  if (!geometry || !origin) return std::nullopt;
  const double scale = 1 / connection.pixelsPerPoint();
  return Rect{Point{origin->dst_x - left, origin->dst_y - top} * scale,
              {(geometry->width + left + right) * scale, (geometry->height + top + bottom) * scale}};
}

}  // namespace

X11WindowList::X11WindowList(X11Connection& connection, X11ClientWindows& windows, X11Workspace& workspace,
                             WindowOwners& owners)
    : connection_(connection), windows_(windows), workspace_(workspace), owners_(owners) {
  connection_.internAtoms({"_NET_FRAME_EXTENTS", "_NET_WM_WINDOW_OPACITY"});
}

std::vector<WindowListEntry> X11WindowList::windows() const {
  auto windows = windows_.windows();
  const auto depth = [this](const WindowInfo& window) {
    return std::tuple(window.isIconified, workspace_.activationRank(window.window));
  };
  std::ranges::stable_sort(windows, {}, depth);
  std::vector<WindowOwners::Owned> owned;
  owned.reserve(windows.size());
  for (const WindowInfo& window : windows) {
    owned.push_back({window.window, workspace_.processIdentifierOf(window)});
  }
  owners_.replace(std::move(owned));
  return describe(windows);
}

std::vector<WindowListEntry> X11WindowList::describe(const std::vector<WindowInfo>& windows) const {
  std::vector<Cookies> cookies;
  cookies.reserve(windows.size());
  for (const WindowInfo& info : windows) cookies.push_back(request(connection_, info.window));
  std::vector<WindowListEntry> entries;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    WindowListEntry entry;
    entry.ownerPID = workspace_.processIdentifierOf(windows[i]);
    entry.layer = windows[i].isOrdinary ? 0 : kAboveOrdinaryWindows;
    entry.number = windows[i].window;
    entry.bounds = boundsOf(connection_, cookies[i]);
    entry.alpha = alphaOf(PropertyReply(xcb_get_property_reply(connection_.get(), cookies[i].opacity, nullptr)));
    entries.push_back(entry);
  }
  return entries;
}

}  // namespace rondora::x11
