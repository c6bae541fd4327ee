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

/// The properties of a window in the order of their requests.
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

constexpr std::array<const char*, 11> kPassingTypes = {
    "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_WINDOW_TYPE_DOCK",         "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_MENU",    "_NET_WM_WINDOW_TYPE_SPLASH",       "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
    "_NET_WM_WINDOW_TYPE_TOOLTIP", "_NET_WM_WINDOW_TYPE_NOTIFICATION", "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_COMBO",   "_NET_WM_WINDOW_TYPE_DND"};

static_assert(std::tuple_size_v<WindowPropertyCookies> == questionCount);
using Answers = std::array<Reply<xcb_get_property_reply_t>, questionCount>;

std::uint32_t firstOf(const Reply<xcb_get_property_reply_t>& reply, std::uint32_t fallback) {
  const auto values = values32(reply.get());
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

bool isOrdinary(const X11Connection& connection, const Answers& answers) {
  const auto states = values32(answers[netWmState].get());
  if (std::find(states.begin(), states.end(), connection.atom("_NET_WM_STATE_SKIP_TASKBAR")) != states.end()) {
    return false;
  }
  const auto types = values32(answers[netWmWindowType].get());
  return types.empty() || std::none_of(kPassingTypes.begin(), kPassingTypes.end(),
                                       [&](const char* name) { return types.front() == connection.atom(name); });
}

/// Some window managers put windows of other desktops into the iconic state too (openbox 3.6), some call a window
/// hidden that lies behind another tab (i3 4.22): where there are both states, both have to say so.
bool isIconified(const X11Connection& connection, const Answers& answers) {
  const auto states = values32(answers[netWmState].get());
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
  info.identity.applicationId = untilNull(text8(answers[gtkApplicationId].get()));
  readClass(text8(answers[wmClass].get()), info.identity);
  const std::string_view title = text8(answers[netWmName].get());
  info.title = untilNull(title.empty() ? text8(answers[wmName].get()) : title);
  if (const auto desktop = firstOf(answers[netWmDesktop], kAllDesktops); desktop != kAllDesktops) {
    info.desktop = desktop;
  }
  info.isIconified = isIconified(connection, answers);
  info.isOrdinary = isOrdinary(connection, answers);
  return info;
}

}  // namespace

void internWindowAtoms(const X11Connection& connection) {
  std::vector<std::string_view> names = {"_NET_WM_STATE_HIDDEN", "_NET_WM_STATE_SKIP_TASKBAR"};
  for (const auto& question : kQuestions) names.emplace_back(question.name);
  names.insert(names.end(), kPassingTypes.begin(), kPassingTypes.end());
  connection.internAtoms(names);
}

WindowPropertyCookies requestWindowProperties(const X11Connection& connection, xcb_window_t window) {
  WindowPropertyCookies cookies{};
  for (std::size_t i = 0; i < questionCount; ++i) {
    cookies[i] = xcb_get_property(connection.get(), 0, window, connection.atom(kQuestions[i].name), XCB_ATOM_ANY, 0,
                                  kQuestions[i].length);
  }
  return cookies;
}

std::optional<WindowInfo> readWindowProperties(const X11Connection& connection, xcb_window_t window,
                                               const WindowPropertyCookies& cookies) {
  Answers answers;
  for (std::size_t i = 0; i < questionCount; ++i) {
    answers[i].reset(xcb_get_property_reply(connection.get(), cookies[i], nullptr));
  }
  if (!answers[wmClass]) return std::nullopt;
  return makeInfo(connection, window, answers);
}

}  // namespace rondora::x11
