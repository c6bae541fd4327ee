#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/workspace.h"

namespace rondora {

/// Installed and running applications with their windows. What was asked for is recorded, asked in vain or not.
class FakeWorkspace final : public Workspace {
 public:
  /// Makes an application known; its location is "/apps/<identifier>".
  void install(const std::string& bundleIdentifier, const std::string& name,
               ActivationPolicy policy = ActivationPolicy::regular);
  /// Starts an application with one window, in front of all others unless it is no regular one.
  RunningApplication start(const std::string& bundleIdentifier);
  /// Adds a running application as it is given, behind the others.
  void addRunning(const RunningApplication& application) { running_.push_back(application); }
  /// The user turns to the application; nobody turns to nobody.
  void bringForward(std::int32_t processIdentifier);
  void leaveAll() { frontmost_ = 0; }
  void hide(std::int32_t processIdentifier);
  void closeWindows(std::int32_t processIdentifier);
  void quit(std::int32_t processIdentifier);

  std::optional<RunningApplication> frontmostApplication() const override;
  std::vector<RunningApplication> runningApplications() const override { return running_; }
  std::vector<RunningApplication> runningApplications(std::string_view bundleIdentifier) const override;
  bool activate(const RunningApplication& application) override;
  void unhide(const RunningApplication& application) override;
  std::optional<ApplicationLocation> urlForApplication(std::string_view bundleIdentifier) const override;
  void openApplication(const ApplicationLocation& location) override;
  std::optional<ApplicationLocation> applicationAtPath(std::string_view path) const override;
  bool openUrl(std::string_view url) override {
    openedUrls.emplace_back(url);
    return true;
  }
  std::optional<std::string> applicationName(std::string_view bundleIdentifier) const override;
  [[nodiscard]] Subscription onDidActivateApplication(
      std::function<void(const RunningApplication&)> observer) override {
    return activated_.subscribe(std::move(observer));
  }

  std::vector<std::int32_t> activationRequests;
  std::vector<std::string> openedApplications;
  std::vector<std::string> openedUrls;
  /// Paths at which the system has an application.
  std::set<std::string, std::less<>> systemPaths;

 private:
  struct Installed {
    std::string name;
    ActivationPolicy policy = ActivationPolicy::regular;
  };

  RunningApplication* find(std::int32_t processIdentifier);

  std::map<std::string, Installed, std::less<>> installed_;
  std::vector<RunningApplication> running_;
  std::int32_t frontmost_ = 0;
  std::int32_t lastProcess_ = 100;
  std::uint64_t lastWindow_ = 0x400000;
  Signal<const RunningApplication&> activated_;
};

}  // namespace rondora
