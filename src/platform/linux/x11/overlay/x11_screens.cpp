#include "platform/linux/x11/overlay/x11_screens.h"

#include <xcb/randr.h>

#include <algorithm>
#include <utility>

#include "platform/linux/x11/connection/property_reply.h"

namespace rondora::x11 {
namespace {

// Includes the toolkit's selection: a request replaces the connection's whole mask.
constexpr std::uint16_t kRandrEvents = XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                                       XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_PROPERTY;

/// A window that opens or closes changes several properties.
constexpr double kSettlingSeconds = 0.2;

/// One rectangle per monitor, published by some window managers, in one property per desktop.
constexpr const char* kWorkAreasOfDesktop0 = "_GTK_WORKAREAS_D0";

bool hasMonitorsRequest(xcb_connection_t* connection) {
  const auto cookie = xcb_randr_query_version(connection, 1, 5);
  const Reply<xcb_randr_query_version_reply_t> reply(xcb_randr_query_version_reply(connection, cookie, nullptr));
  return reply && (reply->major_version > 1 || reply->minor_version >= 5);
}

}  // namespace

X11Screens::X11Screens(X11Connection& connection, MainQueue& mainQueue)
    : connection_(connection), mainQueue_(mainQueue) {
  const xcb_query_extension_reply_t* randr = xcb_get_extension_data(connection.get(), &xcb_randr_id);
  if (randr != nullptr && randr->present) {
    firstRandrEvent_ = randr->first_event;
    hasMonitorsRequest_ = hasMonitorsRequest(connection.get());
    xcb_randr_select_input(connection.get(), connection.root(), kRandrEvents);
  }
  connection.internAtoms({"_NET_CLIENT_LIST", "_NET_WORKAREA", "_NET_CURRENT_DESKTOP", "_NET_WM_STRUT_PARTIAL",
                          "_NET_WM_STRUT", kWorkAreasOfDesktop0});
  connection.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  root_ = readRoot();
  monitors_ = readMonitors();
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

std::vector<Screen> X11Screens::all() const {
  std::vector<Screen> screens;
  screens.reserve(monitors_.size());
  for (const Monitor& monitor : monitors_) screens.push_back(screen(monitor));
  return screens;
}

std::optional<Screen> X11Screens::main() const {
  const auto primary = std::find_if(monitors_.begin(), monitors_.end(), [](const Monitor& m) { return m.isPrimary; });
  if (primary != monitors_.end()) return screen(*primary);
  if (monitors_.empty()) return std::nullopt;
  return screen(monitors_.front());
}

bool X11Screens::handleEvent(const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7F;
  if (type == XCB_PROPERTY_NOTIFY) {
    if (isAboutPanels(reinterpret_cast<const xcb_property_notify_event_t&>(event).atom)) forgetWorkAreas();
  } else if (type == XCB_CONFIGURE_NOTIFY) {
    if (reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == connection_.root()) markMonitorsStale();
  } else if (firstRandrEvent_ != 0 && (type == firstRandrEvent_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                       type == firstRandrEvent_ + XCB_RANDR_NOTIFY)) {
    markMonitorsStale();
  }
  return false;
}

/// True for properties of the root window or of a panel that affect the work areas.
bool X11Screens::isAboutPanels(xcb_atom_t property) const {
  static constexpr const char* kNames[] = {"_NET_CLIENT_LIST",      "_NET_WORKAREA", "_NET_CURRENT_DESKTOP",
                                           "_NET_WM_STRUT_PARTIAL", "_NET_WM_STRUT", kWorkAreasOfDesktop0};
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [&](const char* name) { return property == connection_.atom(name); });
}

// Windows open and close all the time: re-read while idle, so that opening a ring need not wait.
void X11Screens::forgetWorkAreas() {
  workAreas_.reset();
  reading_ = mainQueue_.workItem(kSettlingSeconds, weakSelf_.bind([](X11Screens& self) {
    if (!self.workAreas_) self.workAreas_ = self.readWorkAreas();
  }));
}

// One change of the monitors arrives as several events.
void X11Screens::markMonitorsStale() {
  if (std::exchange(monitorsAreStale_, true)) return;
  mainQueue_.async(weakSelf_.bind([](X11Screens& self) { self.compareMonitors(); }));
}

void X11Screens::compareMonitors() {
  monitorsAreStale_ = false;
  workAreas_.reset();
  root_ = readRoot();
  std::vector<Monitor> now = readMonitors();
  if (now == monitors_) return;
  monitors_ = std::move(now);
  changed_.send();
}

std::vector<X11Screens::Monitor> X11Screens::readMonitors() const {
  std::vector<Monitor> monitors;
  if (hasMonitorsRequest_) {
    const auto cookie = xcb_randr_get_monitors(connection_.get(), connection_.root(), 1);
    const Reply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(connection_.get(), cookie, nullptr));
    if (reply) {
      for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem > 0;
           xcb_randr_monitor_info_next(&it)) {
        monitors.push_back({{it.data->x, it.data->y, it.data->width, it.data->height}, it.data->primary != 0});
      }
    }
  }
  if (monitors.empty()) monitors.push_back({root_, true});
  std::stable_partition(monitors.begin(), monitors.end(),
                        [](const Monitor& m) { return m.frame.x == 0 && m.frame.y == 0; });
  return monitors;
}

PixelRect X11Screens::readRoot() const {
  const auto cookie = xcb_get_geometry(connection_.get(), connection_.root());
  const Reply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(connection_.get(), cookie, nullptr));
  if (reply) return {0, 0, reply->width, reply->height};
  return {0, 0, connection_.screen().width_in_pixels, connection_.screen().height_in_pixels};
}

WorkAreas X11Screens::readWorkAreas() const {
  const auto cardinals = [this](const std::string& name) {
    return connection_.property32(connection_.root(), connection_.atom(name), XCB_ATOM_CARDINAL);
  };
  const auto current = cardinals("_NET_CURRENT_DESKTOP");
  const std::size_t desktop = current.empty() ? 0 : current.front();
  const std::vector<PixelRect> ofDesktops = rectsFromProperty(cardinals("_NET_WORKAREA"));
  if (desktop >= ofDesktops.size()) return {{}, readStruts(), {}};
  return {rectsFromProperty(cardinals("_GTK_WORKAREAS_D" + std::to_string(desktop))), readStruts(),
          ofDesktops[desktop]};
}

// All requests go out before the first reply is awaited.
std::vector<Strut> X11Screens::readStruts() const {
  const auto windows =
      connection_.property32(connection_.root(), connection_.atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW);
  std::vector<xcb_get_property_cookie_t> cookies;
  for (const xcb_window_t window : windows) {
    for (const char* name : {"_NET_WM_STRUT_PARTIAL", "_NET_WM_STRUT"}) {
      cookies.push_back(
          xcb_get_property(connection_.get(), 0, window, connection_.atom(name), XCB_ATOM_CARDINAL, 0, 12));
    }
  }
  std::erase_if(watched_, [&windows](xcb_window_t panel) {
    return std::find(windows.begin(), windows.end(), panel) == windows.end();
  });
  std::vector<Strut> struts;
  bool hasPartial = false;
  bool watchesMore = false;
  for (std::size_t i = 0; i < cookies.size(); ++i) {
    const bool isPartial = i % 2 == 0;
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_.get(), cookies[i], nullptr));
    if (isPartial) hasPartial = false;
    if (!isPartial && hasPartial) continue;
    const auto values = values32(reply.get());
    hasPartial = isPartial && values.size() == 12;
    if (values.size() < 4) continue;
    watchesMore = watch(windows[i / 2]) || watchesMore;
    if (const Strut strut = Strut::fromProperty(values); !strut.isEmpty()) struts.push_back(strut);
  }
  // A property may have changed before its watch began: read again.
  return watchesMore ? readStruts() : struts;
}

/// A changed strut shows only on the panel itself. Only panels have struts, so this is no window of the toolkit's,
/// whose selection the request would replace; the window may be gone by now.
bool X11Screens::watch(xcb_window_t panel) const {
  if (!watched_.insert(panel).second) return false;
  constexpr std::uint32_t kMask = XCB_EVENT_MASK_PROPERTY_CHANGE;
  const auto cookie = xcb_change_window_attributes_checked(connection_.get(), panel, XCB_CW_EVENT_MASK, &kMask);
  xcb_discard_reply(connection_.get(), cookie.sequence);
  return true;
}

Screen X11Screens::screen(const Monitor& monitor) const {
  if (!workAreas_) workAreas_ = readWorkAreas();
  return {inPoints(monitor.frame), inPoints(visibleFrame(monitor.frame, root_, *workAreas_))};
}

Rect X11Screens::inPoints(const PixelRect& rect) const {
  const double factor = 1 / connection_.pixelsPerPoint();
  return {{rect.x * factor, rect.y * factor}, {rect.width * factor, rect.height * factor}};
}

}  // namespace rondora::x11
