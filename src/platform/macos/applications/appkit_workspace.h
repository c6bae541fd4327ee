#pragma once

#include "platform/workspace.h"

namespace rondora::macos {

/// The shared workspace. A location is the path of an application's bundle; snapshots of applications name no window.
class AppKitWorkspace final : public Workspace {
 public:
  std::optional<RunningApplication> frontmostApplication() const override;
  std::vector<RunningApplication> runningApplications() const override;
  std::vector<RunningApplication> runningApplications(std::string_view bundleIdentifier) const override;
  bool activate(const RunningApplication& application) override;
  void unhide(const RunningApplication& application) override;
  bool hide(const RunningApplication& application) override;
  bool terminate(const RunningApplication& application) override;
  std::optional<ApplicationLocation> urlForApplication(std::string_view bundleIdentifier) const override;
  /// Nothing: every identifier stands for one application.
  std::optional<std::string> contentType(std::string_view bundleIdentifier) const override;
  /// Only asks the system, which tells the user itself when it fails.
  bool openApplication(const ApplicationLocation& location) override;
  StartedProcess startedProcess(const ApplicationLocation& location) const override;
  std::optional<ApplicationLocation> applicationAtPath(std::string_view path) const override;
  bool openUrl(std::string_view url) override;
  std::optional<std::string> applicationName(std::string_view bundleIdentifier) const override;
  [[nodiscard]] Subscription onDidActivateApplication(std::function<void(const RunningApplication&)> observer) override;
};

}  // namespace rondora::macos
