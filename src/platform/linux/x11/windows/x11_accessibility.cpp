#include "platform/linux/x11/windows/x11_accessibility.h"

#include <algorithm>
#include <memory>

#include "platform/ax_names.h"
#include "platform/linux/x11/windows/window_element.h"

namespace rondora::x11 {
namespace {

class ApplicationElement final : public AXElement {
 public:
  ApplicationElement(WorkerConnection& worker, const WindowOwners& owners, ApplicationMenus* menus,
                     std::int32_t processIdentifier)
      : worker_(worker), owners_(owners), menus_(menus), processIdentifier_(processIdentifier) {}

  /// The window manager answers, not the application; the elements of the menus have their own.
  void setMessagingTimeout(double /*seconds*/) override {}
  std::optional<AXValue> attribute(std::string_view name) const override;
  std::optional<std::vector<std::optional<AXValue>>> attributes(
      std::span<const std::string_view> names) const override {
    return eachAttribute(*this, names);
  }
  bool isSettable(std::string_view /*name*/) const override { return false; }
  bool setAttribute(std::string_view /*name*/, const AXValue& /*value*/) override { return false; }
  bool perform(std::string_view /*action*/) override { return false; }
  std::uint32_t windowNumber() const override { return 0; }

 private:
  using Connected = WorkerConnection::Connected;

  AXElementRef element(const WindowInfo& window) const {
    return std::make_shared<WindowElement>(worker_, owners_, window.window);
  }
  static const WindowInfo* focused(const Connected& connected, const std::vector<WindowInfo>& windows);
  static const WindowInfo* withMenus(const Connected& connected, const std::vector<WindowInfo>& windows);
  std::optional<AXValue> menuBar(const Connected& connected, const std::vector<WindowInfo>& windows) const;

  WorkerConnection& worker_;
  const WindowOwners& owners_;
  ApplicationMenus* menus_;
  std::int32_t processIdentifier_;
};

std::optional<AXValue> ApplicationElement::attribute(std::string_view name) const {
  const Connected* connected = worker_.connected();
  if (!connected) return std::nullopt;
  const auto windows = windowsOf(*connected, owners_, processIdentifier_);
  if (name == ax::kWindows) {
    std::vector<AXElementRef> elements;
    elements.reserve(windows.size());
    for (const WindowInfo& window : windows) elements.push_back(element(window));
    return AXValue(std::move(elements));
  }
  if (windows.empty()) return std::nullopt;
  if (name == ax::kFocusedWindow) return AXValue(element(*focused(*connected, windows)));
  if (name == ax::kMainWindow) return AXValue(element(windows.front()));
  if (name == ax::kMenuBar && menus_) return menuBar(*connected, windows);
  return std::nullopt;
}

/// The active window when it is one of these, else the one that was active last.
const WindowInfo* ApplicationElement::focused(const Connected& connected, const std::vector<WindowInfo>& windows) {
  const auto active = std::ranges::find(windows, connected.windows.activeWindow(), &WindowInfo::window);
  return active == windows.end() ? &windows.front() : &*active;
}

/// A dialog in front has the menus of the window that it belongs to.
const WindowInfo* ApplicationElement::withMenus(const Connected& connected, const std::vector<WindowInfo>& windows) {
  constexpr int kMaxDialogs = 8;
  const WindowInfo* window = focused(connected, windows);
  for (int i = 0; i < kMaxDialogs; ++i) {
    const auto owner = connected.connection.property32(window->window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW);
    const auto found = owner.empty() ? windows.end() : std::ranges::find(windows, owner.front(), &WindowInfo::window);
    if (found == windows.end()) break;
    window = &*found;
  }
  return window;
}

std::optional<AXValue> ApplicationElement::menuBar(const Connected& connected,
                                                   const std::vector<WindowInfo>& windows) const {
  const WindowInfo& window = *withMenus(connected, windows);
  const X11Connection& connection = connected.connection;
  const auto text = [&](const char* name) {
    const auto bytes = connection.property(window.window, connection.atom(name), XCB_ATOM_ANY);
    return bytes ? std::string(bytes->begin(), std::ranges::find(*bytes, std::uint8_t{0})) : std::string();
  };
  std::vector<std::string> titles{window.title};
  for (const WindowInfo& each : windows) titles.push_back(each.title);
  const MenuBarOwner owner{window.processIdentifier,
                           window.window,
                           std::move(titles),
                           text("_GTK_UNIQUE_BUS_NAME"),
                           text("_GTK_APPLICATION_OBJECT_PATH"),
                           text("_GTK_WINDOW_OBJECT_PATH"),
                           text("_GTK_MENUBAR_OBJECT_PATH")};
  AXElementRef bar = menus_->menuBar(owner);
  return bar ? std::optional(AXValue(std::move(bar))) : std::nullopt;
}

}  // namespace

AXElementRef X11Accessibility::application(std::int32_t processIdentifier) {
  return std::make_shared<ApplicationElement>(worker_, owners_, menus_, processIdentifier);
}

void X11Accessibility::prepareToRead(std::span<const AXElementRef> elements,
                                     std::span<const std::string_view> attributes, double seconds) {
  if (menus_) menus_->prepareToRead(elements, attributes, seconds);
}

}  // namespace rondora::x11
