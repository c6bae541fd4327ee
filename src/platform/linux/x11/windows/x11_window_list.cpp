#include "platform/linux/x11/windows/x11_window_list.h"

#include <xcb/res.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <map>

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kSourcePager = 2;
constexpr std::uint32_t kAllDesktops = 0xFFFFFFFF;
// WM_STATE (ICCCM 4.1.3.1)
constexpr std::uint32_t kNormalState = 1;
constexpr std::uint32_t kIconicState = 3;
constexpr std::uint32_t kLongestText = 1024;
constexpr std::uint32_t kLongestList = 64;

/// What is asked about every window, in this order.
enum Question : std::size_t {
  wmClass,
  gtkApplicationId,
  netWmPid,
  netWmWindowType,
  netWmState,
  wmState,
  netWmDesktop,
  netWmName,
  wmName,
  questionCount
};

struct QuestionProperty {
  const char* name;
  std::uint32_t length;
};

constexpr std::array<QuestionProperty, questionCount> kQuestions = {{
    {"WM_CLASS", kLongestText},
    {"_GTK_APPLICATION_ID", kLongestText},
    {"_NET_WM_PID", 1},
    {"_NET_WM_WINDOW_TYPE", kLongestList},
    {"_NET_WM_STATE", kLongestList},
    {"WM_STATE", 1},
    {"_NET_WM_DESKTOP", 1},
    {"_NET_WM_NAME", kLongestText},
    {"WM_NAME", kLongestText},
}};

constexpr std::array<const char*, 11> kPassingTypes = {
    "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_WINDOW_TYPE_DOCK",         "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_MENU",    "_NET_WM_WINDOW_TYPE_SPLASH",       "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
    "_NET_WM_WINDOW_TYPE_TOOLTIP", "_NET_WM_WINDOW_TYPE_NOTIFICATION", "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_COMBO",   "_NET_WM_WINDOW_TYPE_DND"};

using Cookies = std::array<xcb_get_property_cookie_t, questionCount>;
using Answers = std::array<Reply<xcb_get_property_reply_t>, questionCount>;

std::string_view textOf(const Reply<xcb_get_property_reply_t>& reply) {
  if (!reply || reply->format != 8) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply.get())),
          static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::vector<std::uint32_t> listOf(const Reply<xcb_get_property_reply_t>& reply) {
  if (!reply || reply->format != 32) return {};
  std::vector<std::uint32_t> values(static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / 4);
  if (!values.empty()) std::memcpy(values.data(), xcb_get_property_value(reply.get()), values.size() * 4);
  return values;
}

std::uint32_t firstOf(const Reply<xcb_get_property_reply_t>& reply, std::uint32_t fallback) {
  const auto values = listOf(reply);
  return values.empty() ? fallback : values.front();
}

std::string untilNull(std::string_view text) { return std::string(text.substr(0, text.find('\0'))); }

/// WM_CLASS holds instance and class, each ended by a null byte.
void readClass(std::string_view text, WindowIdentity& identity) {
  identity.instanceName = untilNull(text);
  if (text.size() > identity.instanceName.size()) {
    identity.className = untilNull(text.substr(identity.instanceName.size() + 1));
  }
}

/// Only the user's own processes can be read.
std::string executableOf(std::int32_t processIdentifier) {
  if (processIdentifier <= 0) return {};
  std::error_code error;
  const auto link = std::filesystem::read_symlink("/proc/" + std::to_string(processIdentifier) + "/exe", error);
  std::string name = error ? std::string() : link.filename().string();
  constexpr std::string_view kReplaced = " (deleted)";
  if (name.ends_with(kReplaced)) name.resize(name.size() - kReplaced.size());
  return name;
}

Cookies ask(const X11Connection& connection, xcb_window_t window) {
  Cookies cookies{};
  for (std::size_t i = 0; i < questionCount; ++i) {
    cookies[i] = xcb_get_property(connection.get(), 0, window, connection.atom(kQuestions[i].name), XCB_ATOM_ANY, 0,
                                  kQuestions[i].length);
  }
  return cookies;
}

Answers collect(const X11Connection& connection, const Cookies& cookies) {
  Answers answers;
  for (std::size_t i = 0; i < questionCount; ++i) {
    answers[i].reset(xcb_get_property_reply(connection.get(), cookies[i], nullptr));
  }
  return answers;
}

bool isOrdinary(const X11Connection& connection, const Answers& answers) {
  const auto states = listOf(answers[netWmState]);
  if (std::find(states.begin(), states.end(), connection.atom("_NET_WM_STATE_SKIP_TASKBAR")) != states.end()) {
    return false;
  }
  const auto types = listOf(answers[netWmWindowType]);
  return types.empty() || std::none_of(kPassingTypes.begin(), kPassingTypes.end(),
                                       [&](const char* name) { return types.front() == connection.atom(name); });
}

/// Some window managers put windows of other desktops into the iconic state too (openbox 3.6), some call a window
/// hidden that lies behind another tab (i3 4.22): where there are both states, both have to say so.
bool isIconified(const X11Connection& connection, const Answers& answers) {
  const auto states = listOf(answers[netWmState]);
  if (std::find(states.begin(), states.end(), connection.atom("_NET_WM_STATE_HIDDEN")) != states.end()) {
    return firstOf(answers[wmState], kIconicState) != kNormalState;
  }
  const bool knowsStates = answers[netWmDesktop] && answers[netWmDesktop]->type != XCB_ATOM_NONE;
  return !knowsStates && firstOf(answers[wmState], 0) == kIconicState;
}

WindowInfo makeInfo(const X11Connection& connection, xcb_window_t window, const Answers& answers) {
  WindowInfo info;
  info.window = window;
  info.processIdentifier = static_cast<std::int32_t>(firstOf(answers[netWmPid], 0));
  info.identity.applicationId = untilNull(textOf(answers[gtkApplicationId]));
  readClass(textOf(answers[wmClass]), info.identity);
  const std::string_view title = textOf(answers[netWmName]);
  info.title = untilNull(title.empty() ? textOf(answers[wmName]) : title);
  if (const auto desktop = firstOf(answers[netWmDesktop], kAllDesktops); desktop != kAllDesktops) {
    info.desktop = desktop;
  }
  info.isIconified = isIconified(connection, answers);
  info.isOrdinary = isOrdinary(connection, answers);
  return info;
}

/// Process by client, where a client is the part of a window's id that all resources of one connection share.
std::map<std::uint32_t, std::int32_t> processesOf(const X11Connection& connection,
                                                  xcb_res_query_client_ids_cookie_t cookie) {
  std::map<std::uint32_t, std::int32_t> processes;
  const Reply<xcb_res_query_client_ids_reply_t> reply(
      xcb_res_query_client_ids_reply(connection.get(), cookie, nullptr));
  if (!reply) return processes;
  for (auto it = xcb_res_query_client_ids_ids_iterator(reply.get()); it.rem > 0; xcb_res_client_id_value_next(&it)) {
    const bool hasProcess = (it.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
                            xcb_res_client_id_value_value_length(it.data) > 0;
    if (hasProcess) {
      processes[it.data->spec.client] = static_cast<std::int32_t>(*xcb_res_client_id_value_value(it.data));
    }
  }
  return processes;
}

std::vector<xcb_window_t> childrenOf(const X11Connection& connection, xcb_window_t window) {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), window), nullptr));
  if (!tree) return {};
  const xcb_window_t* first = xcb_query_tree_children(tree.get());
  return {first, first + xcb_query_tree_children_length(tree.get())};
}

xcb_window_t parentOf(const X11Connection& connection, xcb_window_t window) {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), window), nullptr));
  return tree ? tree->parent : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

/// Sends nothing back, an error included: the window may be gone.
void ignoreErrors(const X11Connection& connection, xcb_void_cookie_t cookie) {
  xcb_discard_reply(connection.get(), cookie.sequence);
}

}  // namespace

X11WindowList::X11WindowList(X11Connection& connection) : connection_(connection) {
  std::vector<std::string_view> names = {
      "_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST",         "_NET_CURRENT_DESKTOP", "_NET_CLIENT_LIST_STACKING",
      "_NET_WM_ICON",       "_NET_SUPPORTING_WM_CHECK", "_NET_WM_STATE_HIDDEN", "_NET_WM_STATE_SKIP_TASKBAR"};
  for (const auto& question : kQuestions) names.emplace_back(question.name);
  names.insert(names.end(), kPassingTypes.begin(), kPassingTypes.end());
  connection_.internAtoms(names);
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection_.get(), &xcb_res_id);
  hasResourceExtension_ = extension && extension->present;
}

std::vector<WindowInfo> X11WindowList::windows() const {
  return describeAll(hasWindowManager() ? managedWindows() : unmanagedWindows());
}

std::optional<WindowInfo> X11WindowList::describe(xcb_window_t window) const {
  auto infos = describeAll({&window, 1});
  if (infos.empty()) return std::nullopt;
  return std::move(infos.front());
}

xcb_window_t X11WindowList::activeWindow() const {
  const auto active =
      connection_.property32(connection_.root(), connection_.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW);
  if (!active.empty() && active.front() != XCB_WINDOW_NONE) return active.front();
  return focusedWindow();
}

/// A window manager that ended may leave the property on the root, but not its own window.
bool X11WindowList::hasWindowManager() const {
  const xcb_atom_t name = connection_.atom("_NET_SUPPORTING_WM_CHECK");
  const auto window = connection_.property32(connection_.root(), name, XCB_ATOM_WINDOW);
  return !window.empty() && connection_.property32(window.front(), name, XCB_ATOM_WINDOW) == window;
}

std::vector<xcb_window_t> X11WindowList::managedWindows() const {
  for (const char* name : {"_NET_CLIENT_LIST_STACKING", "_NET_CLIENT_LIST"}) {
    auto windows = connection_.property32(connection_.root(), connection_.atom(name), XCB_ATOM_WINDOW);
    if (windows.empty()) continue;
    std::reverse(windows.begin(), windows.end());
    return windows;
  }
  return {};
}

std::vector<xcb_window_t> X11WindowList::unmanagedWindows() const {
  std::vector<xcb_window_t> windows;
  for (const xcb_window_t window : childrenOf(connection_, connection_.root())) {
    const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr));
    const bool isSeen = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                        attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT && !attributes->override_redirect;
    if (isSeen && connection_.property(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING)) windows.push_back(window);
  }
  std::reverse(windows.begin(), windows.end());
  return windows;
}

std::vector<WindowInfo> X11WindowList::describeAll(std::span<const xcb_window_t> windows) const {
  std::vector<Cookies> cookies;
  std::vector<xcb_res_client_id_spec_t> clients;
  for (const xcb_window_t window : windows) {
    cookies.push_back(ask(connection_, window));
    clients.push_back({window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
  }
  std::map<std::uint32_t, std::int32_t> processes;
  if (hasResourceExtension_ && !clients.empty()) {
    const auto count = static_cast<std::uint32_t>(clients.size());
    processes = processesOf(connection_, xcb_res_query_client_ids(connection_.get(), count, clients.data()));
  }

  const std::uint32_t clientMask = ~xcb_get_setup(connection_.get())->resource_id_mask;
  std::vector<WindowInfo> infos;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const Answers answers = collect(connection_, cookies[i]);
    if (!answers[wmClass]) continue;  // gone
    WindowInfo info = makeInfo(connection_, windows[i], answers);
    if (const auto found = processes.find(windows[i] & clientMask); found != processes.end()) {
      info.processIdentifier = found->second;
    }
    info.identity.executable = executableOf(info.processIdentifier);
    infos.push_back(std::move(info));
  }
  return infos;
}

/// The focus may be on a part of an application's window.
xcb_window_t X11WindowList::focusedWindow() const {
  const Reply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
  if (!reply || reply->focus <= XCB_INPUT_FOCUS_POINTER_ROOT) return XCB_WINDOW_NONE;
  const auto windows = hasWindowManager() ? managedWindows() : unmanagedWindows();
  xcb_window_t window = reply->focus;
  while (window != XCB_WINDOW_NONE && std::find(windows.begin(), windows.end(), window) == windows.end()) {
    window = parentOf(connection_, window);
  }
  return window;
}

std::optional<WindowIcon> X11WindowList::icon(xcb_window_t window) const {
  constexpr std::uint32_t kLargest = 4096;
  constexpr std::uint32_t kWanted = 128;
  const auto data = connection_.property32(window, connection_.atom("_NET_WM_ICON"), XCB_ATOM_CARDINAL);
  std::optional<WindowIcon> best;
  // Width, height and that many pixels, one icon after the other.
  for (std::size_t at = 0; at + 2 < data.size();) {
    const std::uint32_t width = data[at];
    const std::uint32_t height = data[at + 1];
    at += 2;
    const std::size_t count = static_cast<std::size_t>(width) * height;
    if (width == 0 || height == 0 || width > kLargest || height > kLargest || count > data.size() - at) break;
    const auto bestWidth = best ? static_cast<std::uint32_t>(best->width) : 0;
    const bool isBetter = bestWidth < kWanted ? width > bestWidth : width >= kWanted && width < bestWidth;
    if (isBetter) {
      const auto first = data.begin() + static_cast<std::ptrdiff_t>(at);
      best = WindowIcon{
          {first, first + static_cast<std::ptrdiff_t>(count)}, static_cast<int>(width), static_cast<int>(height)};
    }
    at += count;
  }
  return best;
}

void X11WindowList::activate(const WindowInfo& target, xcb_window_t currentlyActive) {
  if (!hasWindowManager()) {
    raiseAndFocus(target.window);
    return;
  }
  const xcb_atom_t desktopAtom = connection_.atom("_NET_CURRENT_DESKTOP");
  const auto current = connection_.property32(connection_.root(), desktopAtom, XCB_ATOM_CARDINAL);
  const xcb_timestamp_t time = connection_.lastEventTime();
  // Openbox ignores a request for a window of another desktop (3.6), so go there first.
  if (target.desktop && !current.empty() && current.front() != *target.desktop) {
    connection_.sendToRoot(connection_.root(), desktopAtom, {*target.desktop, time, 0, 0, 0});
  }
  connection_.sendToRoot(target.window, connection_.atom("_NET_ACTIVE_WINDOW"),
                         {kSourcePager, time, currentlyActive, 0, 0});
  connection_.flush();
}

// Mapping asks the window manager to leave the iconic state (ICCCM 4.1.4).
void X11WindowList::restore(xcb_window_t window) {
  ignoreErrors(connection_, xcb_map_window_checked(connection_.get(), window));
  connection_.flush();
}

void X11WindowList::raiseAndFocus(xcb_window_t window) {
  const std::uint32_t above = XCB_STACK_MODE_ABOVE;
  ignoreErrors(connection_, xcb_map_window_checked(connection_.get(), window));
  ignoreErrors(connection_,
               xcb_configure_window_checked(connection_.get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above));
  ignoreErrors(connection_, xcb_set_input_focus_checked(connection_.get(), XCB_INPUT_FOCUS_POINTER_ROOT, window,
                                                        connection_.lastEventTime()));
  connection_.flush();
}

}  // namespace rondora::x11
