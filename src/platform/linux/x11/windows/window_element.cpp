#include "platform/linux/x11/windows/window_element.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>
#include <tuple>
#include <utility>

#include "platform/ax_names.h"
#include "platform/linux/x11/windows/window_activation.h"
#include "platform/linux/x11/windows/window_manager.h"

namespace rondora::x11 {
namespace {

/// The window manager may still be handling the main thread's request: poll before sending a second one, which would
/// pull the user back if it arrived late. When the active window has changed, the first request took effect.
constexpr int kPolls = 20;
constexpr std::chrono::milliseconds kPause{5};

int pixel(double points, const X11Connection& connection) {
  constexpr double kMax = 32767;  // of the protocol's coordinates
  return static_cast<int>(std::lround(std::clamp(points * connection.pixelsPerPoint(), -kMax, kMax)));
}

/// Rounded down, but for the error of the conversion to points.
int wholePixels(double points, const X11Connection& connection) {
  constexpr double kError = 1e-3;
  return pixel(points + (kError - 0.5) / connection.pixelsPerPoint(), connection);
}

/// The button that closes a window; pressing is all that it can do.
class CloseButton final : public AXElement {
 public:
  CloseButton(WorkerConnection& worker, xcb_window_t window) : worker_(worker), window_(window) {}

  void setMessagingTimeout(double /*seconds*/) override {}
  std::optional<AXValue> attribute(std::string_view /*name*/) const override { return std::nullopt; }
  std::optional<std::vector<std::optional<AXValue>>> attributes(
      std::span<const std::string_view> names) const override {
    return eachAttribute(*this, names);
  }
  bool isSettable(std::string_view /*name*/) const override { return false; }
  bool setAttribute(std::string_view /*name*/, const AXValue& /*value*/) override { return false; }
  bool perform(std::string_view action) override {
    const auto* connected = worker_.connected();
    if (action != ax::kPress || !connected || !connected->windows.describe(window_)) return false;
    return closeWindows(connected->connection, {&window_, 1});
  }
  std::uint32_t windowNumber() const override { return 0; }

 private:
  WorkerConnection& worker_;
  xcb_window_t window_;
};

}  // namespace

std::vector<std::optional<AXValue>> eachAttribute(const AXElement& element, std::span<const std::string_view> names) {
  std::vector<std::optional<AXValue>> values;
  values.reserve(names.size());
  for (const std::string_view name : names) values.push_back(element.attribute(name));
  return values;
}

std::vector<WindowInfo> windowsOf(const WorkerConnection::Connected& connected, const WindowOwners& owners,
                                  std::int32_t processIdentifier) {
  auto windows = connected.windows.windows();
  std::erase_if(windows, [&](const WindowInfo& window) { return owners.ownerOf(window) != processIdentifier; });
  std::ranges::stable_sort(windows, {}, [&owners](const WindowInfo& window) {
    return std::tuple(window.isIconified, owners.activationRank(window.window));
  });
  return windows;
}

std::optional<AXValue> WindowElement::attribute(std::string_view name) const {
  const Connected* connected = worker_.connected();
  if (!connected) return std::nullopt;
  if (name == ax::kPosition || name == ax::kSize) return frameAttribute(*connected, name);
  return stateAttribute(*connected, name);
}

std::optional<AXValue> WindowElement::stateAttribute(const Connected& connected, std::string_view name) const {
  const auto info = connected.windows.describe(window_);
  if (!info) return std::nullopt;
  if (name == ax::kSubrole) {
    if (!info->isOrdinary) return AXValue(std::string(ax::kUnknown));
    return AXValue(std::string(isDialog(connected.connection) ? ax::kDialog : ax::kStandardWindow));
  }
  if (name == ax::kMinimized) return AXValue(info->isIconified);
  if (name == ax::kMain) return AXValue(isMain(connected, *info));
  if (name == ax::kFullScreen) return AXValue(placement(connected).isFullScreen());
  if (name == ax::kCloseButton) return AXValue(AXElementRef(std::make_shared<CloseButton>(worker_, window_)));
  return std::nullopt;
}

/// The visible frame: with the window manager's decoration, without a shadow that the application draws.
std::optional<AXValue> WindowElement::frameAttribute(const Connected& connected, std::string_view name) const {
  const auto frame = windowFrame(connected.connection, window_);
  if (!frame) return std::nullopt;
  const PixelRect visible = frame->visible();
  const double scale = 1 / connected.connection.pixelsPerPoint();
  if (name == ax::kPosition) return AXValue(Point{visible.x * scale, visible.y * scale});
  return AXValue(Size{visible.width * scale, visible.height * scale});
}

bool WindowElement::isMain(const Connected& connected, const WindowInfo& info) const {
  const auto windows = windowsOf(connected, owners_, owners_.ownerOf(info));
  return !windows.empty() && windows.front().window == window_;
}

/// A dialog of another window; one that stands alone is the application's window.
bool WindowElement::isDialog(const X11Connection& connection) const {
  const auto types = connection.property32(window_, connection.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM);
  if (types.empty() || types.front() != connection.atom("_NET_WM_WINDOW_TYPE_DIALOG")) return false;
  const auto parent = connection.property32(window_, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW);
  return !parent.empty() && parent.front() != XCB_WINDOW_NONE && parent.front() != connection.root();
}

std::optional<std::vector<std::optional<AXValue>>> WindowElement::attributes(
    std::span<const std::string_view> names) const {
  return eachAttribute(*this, names);
}

bool WindowElement::isSettable(std::string_view name) const {
  const Connected* connected = worker_.connected();
  if (!connected) return false;
  const WindowPlacement place = placement(*connected);
  if (name == ax::kPosition) return place.canMove();
  if (name == ax::kSize) return place.canResize();
  if (name == ax::kFullScreen) return place.canFullScreen();
  return name == ax::kMinimized && place.canMinimize();
}

bool WindowElement::setAttribute(std::string_view name, const AXValue& value) {
  const Connected* connected = worker_.connected();
  if (!connected) return false;
  if (const auto* origin = std::get_if<Point>(&value)) return name == ax::kPosition && moveTo(*connected, *origin);
  if (const auto* size = std::get_if<Size>(&value)) return name == ax::kSize && resizeTo(*connected, *size);
  const auto* isOn = std::get_if<bool>(&value);
  if (!isOn) return false;
  if (name == ax::kFullScreen) return placement(*connected).setFullScreen(*isOn);
  return name == ax::kMinimized && setMinimized(*connected, *isOn);
}

bool WindowElement::moveTo(const Connected& connected, Point origin) {
  origin_ = origin;
  return placement(connected).moveTo(pixel(origin.x, connected.connection), pixel(origin.y, connected.connection));
}

// Right behind a move the far edges are rounded, not the size: windows that meet in points then meet in pixels. Before
// a move the size is rounded down, as some window managers push a window back that sticks out of its monitor; one that
// was pushed back all the same is moved again in its new size.
bool WindowElement::resizeTo(const Connected& connected, Size size) {
  const WindowPlacement place = placement(connected);
  const auto inPixels = [&](double points) { return pixel(points, connected.connection); };
  const auto inWholePixels = [&](double points) { return wholePixels(points, connected.connection); };
  const auto origin = std::exchange(origin_, std::nullopt);
  if (origin && !isAt(connected, *origin) && place.resizeTo(inWholePixels(size.width), inWholePixels(size.height))) {
    place.moveTo(inPixels(origin->x), inPixels(origin->y));
  }
  if (!origin || !isAt(connected, *origin)) {
    return place.resizeTo(inWholePixels(size.width), inWholePixels(size.height));
  }
  return place.resizeTo(inPixels(origin->x + size.width) - inPixels(origin->x),
                        inPixels(origin->y + size.height) - inPixels(origin->y));
}

bool WindowElement::isAt(const Connected& connected, Point origin) const {
  const auto frame = windowFrame(connected.connection, window_);
  if (!frame) return false;
  const PixelRect visible = frame->visible();
  return pixel(origin.x, connected.connection) == visible.x && pixel(origin.y, connected.connection) == visible.y;
}

/// Restoring does not wait, as the activation of the window follows.
bool WindowElement::setMinimized(const Connected& connected, bool isMinimized) const {
  if (isMinimized) return placement(connected).minimize();
  restoreWindow(connected.connection, window_);
  return true;
}

bool WindowElement::perform(std::string_view action) {
  Connected* connected = worker_.connected();
  return connected && action == ax::kRaise && raise(*connected);
}

bool WindowElement::raise(Connected& connected) const {
  const auto info = connected.windows.describe(window_);
  if (!info) return false;
  const xcb_window_t before = owners_.activeBefore();
  xcb_window_t active = connected.windows.activeWindow();
  for (int poll = 0; poll < kPolls && active == before && active != window_; ++poll) {
    std::this_thread::sleep_for(kPause);
    active = connected.windows.activeWindow();
  }
  if (active == before && active != window_) activateWindow(connected.connection, *info, active);
  return true;
}

}  // namespace rondora::x11
