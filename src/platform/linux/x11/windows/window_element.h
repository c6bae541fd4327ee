#pragma once

#include <optional>

#include "platform/accessibility.h"
#include "platform/linux/x11/windows/window_owners.h"
#include "platform/linux/x11/windows/window_placement.h"
#include "platform/linux/x11/windows/worker_connection.h"

namespace rondora::x11 {

/// A window of an application. The window manager answers, not the application, so it needs no messaging time-out.
class WindowElement final : public AXElement {
 public:
  WindowElement(WorkerConnection& worker, const WindowOwners& owners, xcb_window_t window)
      : worker_(worker), owners_(owners), window_(window) {}

  void setMessagingTimeout(double /*seconds*/) override {}
  std::optional<AXValue> attribute(std::string_view name) const override;
  std::optional<std::vector<std::optional<AXValue>>> attributes(std::span<const std::string_view> names) const override;
  bool isSettable(std::string_view name) const override;
  bool setAttribute(std::string_view name, const AXValue& value) override;
  bool perform(std::string_view action) override;
  std::uint32_t windowNumber() const override { return window_; }

 private:
  using Connected = WorkerConnection::Connected;

  WindowPlacement placement(const Connected& connected) const {
    return {connected.connection, connected.windowManager, window_};
  }
  std::optional<AXValue> stateAttribute(const Connected& connected, std::string_view name) const;
  std::optional<AXValue> frameAttribute(const Connected& connected, std::string_view name) const;
  bool isMain(const Connected& connected, const WindowInfo& info) const;
  bool isDialog(const X11Connection& connection) const;
  bool moveTo(const Connected& connected, Point origin);
  bool resizeTo(const Connected& connected, Size size);
  bool isAt(const Connected& connected, Point origin) const;
  bool setMinimized(const Connected& connected, bool isMinimized) const;
  bool raise(Connected& connected) const;

  WorkerConnection& worker_;
  const WindowOwners& owners_;
  xcb_window_t window_;
  /// Written last, in points, until a size is written: the pixel that an edge lies on depends on its fraction.
  std::optional<Point> origin_;
};

/// The windows of an application, most recently active first, iconified last. Listed anew at each call.
std::vector<WindowInfo> windowsOf(const WorkerConnection::Connected& connected, const WindowOwners& owners,
                                  std::int32_t processIdentifier);

/// Reads the attributes one by one: answers of the window manager cost no call to the application.
std::vector<std::optional<AXValue>> eachAttribute(const AXElement& element, std::span<const std::string_view> names);

}  // namespace rondora::x11
