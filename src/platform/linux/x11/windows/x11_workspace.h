#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/application_catalogue.h"
#include "platform/linux/x11/windows/window_owners.h"
#include "platform/linux/x11/windows/x11_client_windows.h"
#include "platform/workspace.h"

namespace rondora::x11 {

/// Derives the running applications from their windows: those with the same application id and process are one. Records
/// for each which of its windows was active last, and tells the owners. Main thread.
class X11Workspace final : public Workspace {
 public:
  /// Arguments must outlive the object. Windows of our own process belong to `ownBundleIdentifier`.
  X11Workspace(X11Connection& connection, X11ClientWindows& windows, ApplicationCatalogue& catalogue,
               WindowOwners& owners, std::string ownBundleIdentifier);

  std::optional<RunningApplication> frontmostApplication() const override;
  /// Topmost first.
  std::vector<RunningApplication> runningApplications() const override;
  /// Of several processes the most recently active first, those without an open window last: stacking says little where
  /// windows lie side by side.
  std::vector<RunningApplication> runningApplications(std::string_view bundleIdentifier) const override;
  bool activate(const RunningApplication& application) override;
  void unhide(const RunningApplication& application) override;
  /// False without an ordinary window, and under a window manager that has no iconified windows.
  bool hide(const RunningApplication& application) override;
  /// Closes every ordinary window, also iconified ones. False when there is none.
  bool terminate(const RunningApplication& application) override;
  /// Also finds applications that run without being installed.
  std::optional<ApplicationLocation> urlForApplication(std::string_view bundleIdentifier) const override;
  std::optional<std::string> contentType(std::string_view bundleIdentifier) const override;
  bool openApplication(const ApplicationLocation& location) override;
  StartedProcess startedProcess(const ApplicationLocation& location) const override {
    return catalogue_.startedProcess(location.value);
  }
  std::optional<ApplicationLocation> applicationAtPath(std::string_view path) const override;
  bool openUrl(std::string_view url) override;
  std::optional<std::string> applicationName(std::string_view bundleIdentifier) const override;
  [[nodiscard]] Subscription onDidActivateApplication(std::function<void(const RunningApplication&)> observer) override;

  /// The window's process. Several applications in one process, and those of unknown process, are distinguished by
  /// negative numbers.
  std::int32_t processIdentifierOf(const WindowInfo& window) const;

 private:
  RunningApplication applicationOf(const WindowInfo& window) const;
  std::string idOf(const WindowInfo& window) const;
  std::int32_t processIdentifierOf(const WindowInfo& window, const std::string& id) const;
  std::int32_t processIdentifier(std::int32_t process, const std::string& id) const;
  const WindowInfo* windowToActivate(const RunningApplication& application,
                                     const std::vector<WindowInfo>& windows) const;
  std::vector<xcb_window_t> ordinaryWindows(const RunningApplication& application) const;
  bool readActiveWindow();
  void activeWindowChanged();

  X11Connection& connection_;
  X11ClientWindows& windows_;
  ApplicationCatalogue& catalogue_;
  WindowOwners& owners_;
  std::string ownBundleIdentifier_;
  /// The application that each process was first seen as.
  mutable std::map<std::int32_t, std::string> applicationsOfProcesses_;
  /// Applications with a negative number: the first has -1.
  mutable std::vector<std::pair<std::int32_t, std::string>> furtherApplications_;
  std::optional<RunningApplication> lastActivated_;
  /// The application of the active window; nothing while the window manager names none.
  std::optional<RunningApplication> frontmost_;
  Signal<const RunningApplication&> didActivate_;
  Subscription rootEvents_;
};

}  // namespace rondora::x11
