#include "platform/linux/x11/windows/x11_window_server.h"

#include <algorithm>
#include <cstring>
#include <tuple>

namespace rondora::x11 {
namespace {

/// kCGErrorIllegalArgument, the value for a window that there is not.
constexpr std::int32_t kIllegalArgument = 1001;
/// Panels, docks and helpers; the number only has to differ from 0.
constexpr std::int64_t kAboveOrdinaryWindows = 3;

struct Questions {
  xcb_get_geometry_cookie_t geometry;
  xcb_get_property_cookie_t frameExtents;
  xcb_get_property_cookie_t opacity;
};

using PropertyReply = Reply<xcb_get_property_reply_t>;

std::vector<std::uint32_t> cardinals(const PropertyReply& reply) {
  if (!reply || reply->type != XCB_ATOM_CARDINAL || reply->format != 32) return {};
  std::vector<std::uint32_t> values(static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / 4);
  if (!values.empty()) std::memcpy(values.data(), xcb_get_property_value(reply.get()), values.size() * 4);
  return values;
}

WindowListEntry::Alpha alphaOf(const PropertyReply& reply) {
  if (!reply || reply->type == XCB_ATOM_NONE) return std::monostate();
  const auto values = cardinals(reply);
  if (values.empty()) return WindowListEntry::Malformed{};
  return static_cast<double>(values.front()) / 0xFFFFFFFF;
}

}  // namespace

X11WindowServer::X11WindowServer(X11Connection& connection, X11WindowList& windows, X11Workspace& workspace,
                                 WindowOwners& owners)
    : connection_(connection), windows_(windows), workspace_(workspace), owners_(owners) {
  connection_.internAtoms({"_NET_FRAME_EXTENTS", "_NET_WM_WINDOW_OPACITY"});
}

std::vector<WindowListEntry> X11WindowServer::windows() const {
  auto windows = windows_.windows();
  const auto depth = [this](const WindowInfo& window) {
    return std::tuple(window.isIconified, workspace_.activationRank(window.window));
  };
  std::stable_sort(windows.begin(), windows.end(),
                   [&depth](const WindowInfo& left, const WindowInfo& right) { return depth(left) < depth(right); });
  std::vector<WindowOwners::Owned> owned;
  for (const WindowInfo& window : windows) {
    owned.push_back({window.window, workspace_.processIdentifierOf(window)});
  }
  owners_.replace(std::move(owned));
  return describe(windows);
}

std::vector<WindowListEntry> X11WindowServer::describe(const std::vector<WindowInfo>& windows) const {
  xcb_connection_t* c = connection_.get();
  const xcb_atom_t extentsAtom = connection_.atom("_NET_FRAME_EXTENTS");
  const xcb_atom_t opacityAtom = connection_.atom("_NET_WM_WINDOW_OPACITY");
  std::vector<Questions> questions;
  for (const WindowInfo& info : windows) {
    questions.push_back({xcb_get_geometry(c, info.window),
                         xcb_get_property(c, 0, info.window, extentsAtom, XCB_ATOM_ANY, 0, 4),
                         xcb_get_property(c, 0, info.window, opacityAtom, XCB_ATOM_ANY, 0, 1)});
  }
  std::vector<WindowListEntry> entries;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(c, questions[i].geometry, nullptr));
    auto extents = cardinals(PropertyReply(xcb_get_property_reply(c, questions[i].frameExtents, nullptr)));
    const PropertyReply opacity(xcb_get_property_reply(c, questions[i].opacity, nullptr));
    WindowListEntry entry;
    entry.ownerPID = workspace_.processIdentifierOf(windows[i]);
    entry.layer = windows[i].isOrdinary ? 0 : kAboveOrdinaryWindows;
    entry.number = windows[i].window;
    entry.alpha = alphaOf(opacity);
    if (geometry) {
      extents.resize(4);  // left, right, top, bottom
      const double scale = 1 / connection_.pixelsPerPoint();
      entry.bounds = Rect{Point{static_cast<double>(geometry->x), static_cast<double>(geometry->y)} * scale,
                          {(geometry->width + static_cast<double>(extents[0] + extents[1])) * scale,
                           (geometry->height + static_cast<double>(extents[2] + extents[3])) * scale}};
    }
    entries.push_back(entry);
  }
  return entries;
}

FrontProcess::Lookup X11WindowServer::processForPID(std::int32_t processIdentifier) const {
  return {0, {0, static_cast<std::uint32_t>(processIdentifier)}};
}

std::int32_t X11WindowServer::setFrontProcess(ProcessSerialNumber process, std::uint32_t window,
                                              std::uint32_t /*options*/) {
  const auto target = windows_.describe(window);
  if (!target) return kIllegalArgument;
  const xcb_window_t active = windows_.activeWindow();
  owners_.setActiveBefore(active);
  const auto frontmost = workspace_.frontmostApplication();
  const bool isInFront = frontmost && static_cast<std::uint32_t>(frontmost->processIdentifier) == process.low;
  if (!isInFront) windows_.activate(*target, active);
  return 0;
}

}  // namespace rondora::x11
