#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "doubles/value_at.h"
#include "platform/application_directory.h"
#include "platform/workspace.h"

namespace rondora {

/// Installed and running applications with their windows. Records all requests, successful or not.
class FakeWorkspace final : public Workspace, public ApplicationDirectory {
 public:
  /// Installs an application; its location is "/apps/<identifier>".
  void install(const std::string& bundleIdentifier, const std::string& name,
               ActivationPolicy policy = ActivationPolicy::regular) {
    installed_[bundleIdentifier] = {name, policy};
  }
  /// Starts an application with one window; a regular one comes to the front.
  RunningApplication start(const std::string& bundleIdentifier) {
    const auto [name, policy] = valueAt(installed_, bundleIdentifier).value_or(Installed{bundleIdentifier});
    addRunning({++lastProcess_, bundleIdentifier, name, policy, false, false, ++lastWindow_});
    const RunningApplication application = running_.back();
    if (policy == ActivationPolicy::regular) bringForward(application.processIdentifier);
    return application;
  }
  /// Adds a running application behind the others.
  void addRunning(const RunningApplication& application) { running_.push_back(application); }
  /// The user switches to the application; no effect for an unknown process.
  void bringForward(std::int32_t processIdentifier) {
    const RunningApplication* application = find(processIdentifier);
    if (application == nullptr || frontmost_ == processIdentifier) return;
    frontmost_ = processIdentifier;
    const RunningApplication copy = *application;
    activated_.send(copy);
  }
  void leaveAll() { frontmost_ = 0; }
  void hide(std::int32_t processIdentifier) {
    if (RunningApplication* application = find(processIdentifier)) application->isHidden = true;
    if (frontmost_ == processIdentifier) leaveAll();
  }
  void closeWindows(std::int32_t processIdentifier) {
    if (RunningApplication* application = find(processIdentifier)) application->window = 0;
  }
  void quit(std::int32_t processIdentifier) {
    std::erase_if(running_,
                  [&](const auto& application) { return application.processIdentifier == processIdentifier; });
    if (frontmost_ == processIdentifier) leaveAll();
  }

  std::optional<RunningApplication> frontmostApplication() const override {
    const auto found = std::ranges::find(running_, frontmost_, &RunningApplication::processIdentifier);
    return found == running_.end() ? std::nullopt : std::optional(*found);
  }
  /// The regular ones.
  std::vector<StartableApplication> startableApplications() const override {
    std::vector<StartableApplication> applications;
    for (const auto& [identifier, each] : installed_) {
      if (each.policy != ActivationPolicy::regular) continue;
      applications.push_back(valueAt(searchTexts, identifier).value_or(StartableApplication{}));
      applications.back().bundleIdentifier = identifier;
      applications.back().name = each.name;
    }
    return applications;
  }
  std::vector<RunningApplication> runningApplications() const override { return running_; }
  std::vector<RunningApplication> runningApplications(std::string_view bundleIdentifier) const override {
    auto found = running_;
    std::erase_if(found, [&](const auto& each) { return each.bundleIdentifier != bundleIdentifier; });
    return found;
  }
  bool activate(const RunningApplication& application) override {
    activationRequests.push_back(application.processIdentifier);
    const RunningApplication* found = find(application.processIdentifier);
    if (found == nullptr || found->window == 0) return false;
    bringForward(application.processIdentifier);
    return true;
  }
  void unhide(const RunningApplication& application) override {
    if (RunningApplication* found = find(application.processIdentifier)) found->isHidden = false;
  }
  bool hide(const RunningApplication& application) override {
    if (hidesApplications) hide(application.processIdentifier);
    return hidesApplications;
  }
  bool terminate(const RunningApplication& application) override {
    const bool runs = find(application.processIdentifier) != nullptr;
    quit(application.processIdentifier);
    return runs;
  }
  std::optional<ApplicationLocation> urlForApplication(std::string_view bundleIdentifier) const override {
    if (!installed_.contains(bundleIdentifier)) return std::nullopt;
    return ApplicationLocation{std::string(kApplicationsFolder).append(bundleIdentifier)};
  }
  std::optional<std::string> contentType(std::string_view bundleIdentifier) const override {
    return valueAt(contentTypes, bundleIdentifier);
  }
  bool openApplication(const ApplicationLocation& location) override {
    openedApplications.push_back(location.value);
    if (!location.value.starts_with(kApplicationsFolder)) return true;
    const std::string bundleIdentifier = location.value.substr(kApplicationsFolder.size());
    if (broken.contains(bundleIdentifier)) return false;
    if (slow.contains(bundleIdentifier)) return true;
    const auto instances = runningApplications(bundleIdentifier);
    if (instances.empty()) {
      start(bundleIdentifier);
    } else {
      bringForward(instances.front().processIdentifier);
    }
    return true;
  }
  StartedProcess startedProcess(const ApplicationLocation& location) const override {
    return valueAt(endedProcesses, location.value.substr(kApplicationsFolder.size())).value_or(StartedProcess::runs);
  }
  std::optional<ApplicationLocation> applicationAtPath(std::string_view path) const override {
    if (!systemPaths.contains(path)) return std::nullopt;
    return ApplicationLocation{std::string(path)};
  }
  bool openUrl(std::string_view url) override {
    openedUrls.emplace_back(url);
    return opensUrls;
  }
  std::optional<std::string> applicationName(std::string_view bundleIdentifier) const override {
    const auto found = valueAt(installed_, bundleIdentifier);
    return found ? std::optional(found->name) : std::nullopt;
  }
  [[nodiscard]] Subscription onDidActivateApplication(
      std::function<void(const RunningApplication&)> observer) override {
    return activated_.subscribe(std::move(observer));
  }

  /// What installed applications are found by besides identifier and name.
  std::map<std::string, StartableApplication, std::less<>> searchTexts;
  std::vector<std::int32_t> activationRequests;
  std::vector<std::string> openedApplications;
  std::vector<std::string> openedUrls;
  bool opensUrls = true;
  bool hidesApplications = true;
  /// Installed applications that cannot be started.
  std::set<std::string> broken;
  /// By the identifiers that stand for a kind of application.
  std::map<std::string, std::string, std::less<>> contentTypes;
  /// Installed applications that show no window when they are started.
  std::set<std::string> slow;
  /// Applications whose started process ends without a window.
  std::map<std::string, StartedProcess> endedProcesses;
  /// Paths at which the system has an application.
  std::set<std::string, std::less<>> systemPaths;

 private:
  static constexpr std::string_view kApplicationsFolder = "/apps/";

  struct Installed {
    std::string name;
    ActivationPolicy policy = ActivationPolicy::regular;
  };

  RunningApplication* find(std::int32_t processIdentifier) {
    const auto found = std::ranges::find(running_, processIdentifier, &RunningApplication::processIdentifier);
    return found == running_.end() ? nullptr : &*found;
  }

  std::map<std::string, Installed, std::less<>> installed_;
  std::vector<RunningApplication> running_;
  std::int32_t frontmost_ = 0;
  std::int32_t lastProcess_ = 100;
  std::uint64_t lastWindow_ = 0x400000;
  Signal<const RunningApplication&> activated_;
};

}  // namespace rondora
