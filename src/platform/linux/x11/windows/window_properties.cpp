#include "platform/linux/x11/windows/window_properties.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/linux/x11/connection/property_reply.h"

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kAllDesktops = 0xFFFFFFFF;
// WM_STATE (ICCCM 4.1.3.1)
constexpr std::uint32_t kNormalState = 1;
constexpr std::uint32_t kIconicState = 3;
constexpr std::uint32_t kMaxText = 1024;
constexpr std::uint32_t kMaxList = 64;

/// In the order of their requests.
enum Property : std::size_t {
  wmClass,
  gtkApplicationId,
  netWmPid,
  netWmWindowType,
  netWmState,
  wmState,
  netWmDesktop,
  netWmName,
  wmName,
  propertyCount
};

struct PropertyRequest {
  const char* name;
  std::uint32_t length;
};

constexpr std::array<PropertyRequest, propertyCount> kProperties = {{
    {"WM_CLASS", kMaxText},
    {"_GTK_APPLICATION_ID", kMaxText},
    {"_NET_WM_PID", 1},
    {"_NET_WM_WINDOW_TYPE", kMaxList},
    {"_NET_WM_STATE", kMaxList},
    {"WM_STATE", 1},
    {"_NET_WM_DESKTOP", 1},
    {"_NET_WM_NAME", kMaxText},
    {"WM_NAME", kMaxText},
}};

constexpr std::array<const char*, 11> kTransientTypes = {
    "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_WINDOW_TYPE_DOCK",         "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_MENU",    "_NET_WM_WINDOW_TYPE_SPLASH",       "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
    "_NET_WM_WINDOW_TYPE_TOOLTIP", "_NET_WM_WINDOW_TYPE_NOTIFICATION", "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_COMBO",   "_NET_WM_WINDOW_TYPE_DND"};

static_assert(std::tuple_size_v<WindowPropertyCookies> == propertyCount);
using Replies = std::array<Reply<xcb_get_property_reply_t>, propertyCount>;

std::uint32_t firstOf(const Reply<xcb_get_property_reply_t>& reply, std::uint32_t fallback) {
  const auto values = values32(reply.get());
  return values.empty() ? fallback : values.front();
}

std::string untilNull(std::string_view text) { return std::string(text.substr(0, text.find('\0'))); }

/// WM_CLASS holds instance and class, each null-terminated.
void readClass(std::string_view text, WindowIdentity& identity) {
  identity.instanceName = untilNull(text);
  if (text.size() > identity.instanceName.size()) {
    identity.className = untilNull(text.substr(identity.instanceName.size() + 1));
  }
}

bool isOrdinary(const X11Connection& connection, const Replies& replies) {
  const auto states = values32(replies[netWmState].get());
  if (std::find(states.begin(), states.end(), connection.atom("_NET_WM_STATE_SKIP_TASKBAR")) != states.end()) {
    return false;
  }
  const auto types = values32(replies[netWmWindowType].get());
  return types.empty() || std::none_of(kTransientTypes.begin(), kTransientTypes.end(),
                                       [&](const char* name) { return types.front() == connection.atom(name); });
}

/// Whether the window manager shows its decoration of the window.
bool isFrameShown(const X11Connection& connection, xcb_window_t window) {
  xcb_connection_t* server = connection.get();
  const Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(server, xcb_query_tree(server, window), nullptr));
  if (!tree || tree->parent == tree->root) return false;
  const Reply<xcb_get_window_attributes_reply_t> frame(
      xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, tree->parent), nullptr));
  return frame && frame->map_state == XCB_MAP_STATE_VIEWABLE;
}

/// Some window managers also make windows of other desktops iconic (openbox 3.6), some mark a window behind another tab
/// as hidden (i3 4.22): where both states exist, both must agree. A shaded window may be in both (metacity 3.46).
bool isIconified(const X11Connection& connection, xcb_window_t window, const Replies& replies) {
  const auto states = values32(replies[netWmState].get());
  const auto has = [&](const char* state) { return std::ranges::find(states, connection.atom(state)) != states.end(); };
  if (has("_NET_WM_STATE_HIDDEN")) {
    const bool isUnmapped = firstOf(replies[wmState], kIconicState) != kNormalState;
    return isUnmapped && !(has("_NET_WM_STATE_SHADED") && isFrameShown(connection, window));
  }
  const bool knowsStates = replies[netWmDesktop] && replies[netWmDesktop]->type != XCB_ATOM_NONE;
  return !knowsStates && firstOf(replies[wmState], 0) == kIconicState;
}

WindowInfo makeInfo(const X11Connection& connection, xcb_window_t window, const Replies& replies) {
  WindowInfo info;
  info.window = window;
  info.processIdentifier = static_cast<std::int32_t>(firstOf(replies[netWmPid], 0));
  info.identity.applicationId = untilNull(text8(replies[gtkApplicationId].get()));
  readClass(text8(replies[wmClass].get()), info.identity);
  const std::string_view title = text8(replies[netWmName].get());
  info.title = untilNull(title.empty() ? text8(replies[wmName].get()) : title);
  if (const auto desktop = firstOf(replies[netWmDesktop], kAllDesktops); desktop != kAllDesktops) {
    info.desktop = desktop;
  }
  info.isIconified = isIconified(connection, window, replies);
  info.isOrdinary = isOrdinary(connection, replies);
  return info;
}

}  // namespace

void internWindowAtoms(const X11Connection& connection) {
  std::vector<std::string_view> names = {"_NET_WM_STATE_HIDDEN", "_NET_WM_STATE_SHADED", "_NET_WM_STATE_SKIP_TASKBAR"};
  for (const auto& property : kProperties) names.emplace_back(property.name);
  names.insert(names.end(), kTransientTypes.begin(), kTransientTypes.end());
  connection.internAtoms(names);
}

WindowPropertyCookies requestWindowProperties(const X11Connection& connection, xcb_window_t window) {
  WindowPropertyCookies cookies{};
  for (std::size_t i = 0; i < propertyCount; ++i) {
    cookies[i] = xcb_get_property(connection.get(), 0, window, connection.atom(kProperties[i].name), XCB_ATOM_ANY, 0,
                                  kProperties[i].length);
  }
  return cookies;
}

std::optional<WindowInfo> readWindowProperties(const X11Connection& connection, xcb_window_t window,
                                               const WindowPropertyCookies& cookies) {
  Replies replies;
  for (std::size_t i = 0; i < propertyCount; ++i) {
    replies[i].reset(xcb_get_property_reply(connection.get(), cookies[i], nullptr));
  }
  if (!replies[wmClass]) return std::nullopt;
  return makeInfo(connection, window, replies);
}

}  // namespace rondora::x11
