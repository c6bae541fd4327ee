#include "platform/linux/x11/windows/x11_window_list.h"

#include <algorithm>
#include <tuple>

#include "platform/linux/x11/connection/property_reply.h"
#include "platform/linux/x11/windows/window_frame.h"

namespace rondora::x11 {
namespace {

/// For panels, docks and helpers; any number but 0 would do.
constexpr std::int64_t kAboveOrdinaryWindows = 3;

using PropertyReply = Reply<xcb_get_property_reply_t>;

struct Cookies {
  WindowFrameCookies frame;
  xcb_get_property_cookie_t opacity;
};

Cookies request(const X11Connection& connection, xcb_window_t window) {
  return {requestWindowFrame(connection, window),
          xcb_get_property(connection.get(), 0, window, connection.atom("_NET_WM_WINDOW_OPACITY"), XCB_ATOM_ANY, 0, 1)};
}

WindowListEntry::Alpha alphaOf(const PropertyReply& reply) {
  if (!reply || reply->type == XCB_ATOM_NONE) return std::monostate();
  const auto values = values32(reply.get());
  if (reply->type != XCB_ATOM_CARDINAL || values.empty()) return WindowListEntry::Malformed{};
  return static_cast<double>(values.front()) / 0xFFFFFFFF;
}

/// The visible frame, in points.
std::optional<Rect> boundsOf(const X11Connection& connection, const WindowFrameCookies& cookies) {
  const auto frame = readWindowFrame(connection, cookies);
  if (!frame) return std::nullopt;
  const PixelRect visible = frame->visible();
  const double scale = 1 / connection.pixelsPerPoint();
  return Rect{{visible.x * scale, visible.y * scale}, {visible.width * scale, visible.height * scale}};
}

}  // namespace

X11WindowList::X11WindowList(X11Connection& connection, X11ClientWindows& windows, X11Workspace& workspace,
                             const WindowOwners& owners)
    : connection_(connection), windows_(windows), workspace_(workspace), owners_(owners) {
  internFrameAtoms(connection_);
  connection_.internAtoms({"_NET_WM_WINDOW_OPACITY"});
}

std::vector<WindowListEntry> X11WindowList::windows() const {
  auto windows = windows_.windows();
  const auto depth = [this](const WindowInfo& window) {
    return std::tuple(window.isIconified, owners_.activationRank(window.window));
  };
  std::ranges::stable_sort(windows, {}, depth);
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
    entry.bounds = boundsOf(connection_, cookies[i].frame);
    entry.alpha = alphaOf(PropertyReply(xcb_get_property_reply(connection_.get(), cookies[i].opacity, nullptr)));
    entries.push_back(entry);
  }
  return entries;
}

}  // namespace rondora::x11
