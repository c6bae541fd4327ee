#include "platform/linux/x11/windows/x11_accessibility.h"

#include <chrono>
#include <memory>
#include <numeric>
#include <thread>

#include "platform/linux/x11/windows/window_activation.h"

namespace rondora::x11 {
namespace {

/// The window manager may still be handling the main thread's request: poll before sending a second one, which would
/// pull the user back if it arrived late. When the active window has changed, the first request took effect.
constexpr int kPolls = 20;
constexpr std::chrono::milliseconds kPause{5};

/// A window of an application.
class WindowElement final : public AXElement {
 public:
  WindowElement(WorkerConnection& worker, const WindowOwners& owners, xcb_window_t window)
      : worker_(worker), owners_(owners), window_(window) {}

  /// The window manager answers, not the application, so no time-out is needed.
  void setMessagingTimeout(double /*seconds*/) override {}

  std::optional<AXValue> attribute(std::string_view name) const override {
    const auto info = describe();
    if (!info) return std::nullopt;
    if (name == "AXSubrole") return AXValue(std::string(info->isOrdinary ? "AXStandardWindow" : "AXUnknown"));
    if (name == "AXMinimized") return AXValue(info->isIconified);
    return std::nullopt;
  }

  bool setAttribute(std::string_view name, const AXValue& value) override {
    const X11Connection* connection = worker_.connection();
    if (!connection || name != "AXMinimized" || value != AXValue(false)) return false;
    restoreWindow(*connection, window_);
    return true;
  }

  bool perform(std::string_view action) override {
    const auto info = describe();
    if (!info || action != "AXRaise") return false;
    X11ClientWindows& windows = *worker_.windows();
    const xcb_window_t before = owners_.activeBefore();
    xcb_window_t active = windows.activeWindow();
    for (int poll = 0; poll < kPolls && active == before && active != window_; ++poll) {
      std::this_thread::sleep_for(kPause);
      active = windows.activeWindow();
    }
    if (active == before && active != window_) activateWindow(*worker_.connection(), *info, active);
    return true;
  }

  std::uint32_t windowNumber() const override { return window_; }

 private:
  std::optional<WindowInfo> describe() const {
    X11ClientWindows* windows = worker_.windows();
    return windows ? windows->describe(window_) : std::nullopt;
  }

  WorkerConnection& worker_;
  const WindowOwners& owners_;
  xcb_window_t window_;
};

class ApplicationElement final : public AXElement {
 public:
  explicit ApplicationElement(std::vector<AXElementRef> windows) : windows_(std::move(windows)) {}

  void setMessagingTimeout(double /*seconds*/) override {}
  std::optional<AXValue> attribute(std::string_view name) const override {
    if (name != "AXWindows") return std::nullopt;
    return AXValue(windows_);
  }
  bool setAttribute(std::string_view /*name*/, const AXValue& /*value*/) override { return false; }
  bool perform(std::string_view /*action*/) override { return false; }
  std::uint32_t windowNumber() const override { return 0; }

 private:
  std::vector<AXElementRef> windows_;
};

}  // namespace

struct WorkerConnection::Connected {
  explicit Connected(double pixelsPerPoint)
      : handle(xcb_connect(nullptr, &screen)), connection(handle.get(), screen, pixelsPerPoint), windows(connection) {}

  int screen = 0;
  UniqueCPtr<xcb_connection_t, xcb_disconnect> handle;
  X11Connection connection;
  X11ClientWindows windows;
};

void WorkerConnection::Disconnect::operator()(Connected* connected) const { delete connected; }

WorkerConnection::Connected* WorkerConnection::connected() {
  if (!connected_) connected_.reset(new Connected(pixelsPerPoint_));
  return xcb_connection_has_error(connected_->handle.get()) == 0 ? connected_.get() : nullptr;
}

X11Connection* WorkerConnection::connection() {
  Connected* made = connected();
  return made ? &made->connection : nullptr;
}

X11ClientWindows* WorkerConnection::windows() {
  Connected* made = connected();
  return made ? &made->windows : nullptr;
}

AXElementRef X11Accessibility::application(std::int32_t processIdentifier) {
  std::vector<AXElementRef> windows;
  for (const xcb_window_t window : owners_.windowsOf(processIdentifier)) {
    windows.push_back(std::make_shared<WindowElement>(worker_, owners_, window));
  }
  return std::make_shared<ApplicationElement>(std::move(windows));
}

std::optional<std::vector<std::uint64_t>> X11Spaces::spacesForWindow(std::uint32_t window) const {
  X11ClientWindows* windows = worker_.windows();
  const auto info = windows ? windows->describe(window) : std::nullopt;
  if (!info || !info->desktop) return std::nullopt;
  return std::vector<std::uint64_t>{*info->desktop};
}

std::optional<std::vector<DisplaySpaces>> X11Spaces::managedDisplaySpaces() const {
  const X11Connection* connection = worker_.connection();
  if (!connection) return std::nullopt;
  const auto cardinals = [connection](const char* name) {
    return connection->property32(connection->root(), connection->atom(name), XCB_ATOM_CARDINAL);
  };
  const auto count = cardinals("_NET_NUMBER_OF_DESKTOPS");
  const auto current = cardinals("_NET_CURRENT_DESKTOP");
  constexpr std::uint32_t kMaxDesktops = 1024;
  if (count.empty() || count.front() > kMaxDesktops) return std::nullopt;
  DisplaySpaces display;
  for (std::uint32_t desktop = 0; desktop < count.front(); ++desktop) display.spaces.emplace_back(desktop);
  if (!current.empty()) display.currentSpace = current.front();
  return std::vector<DisplaySpaces>{display};
}

}  // namespace rondora::x11
