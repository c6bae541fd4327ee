#include "doubles/fake_workspace.h"

#include <algorithm>

namespace rondora {
namespace {

constexpr std::string_view kApplicationsFolder = "/apps/";

}  // namespace

void FakeWorkspace::install(const std::string& bundleIdentifier, const std::string& name, ActivationPolicy policy) {
  installed_[bundleIdentifier] = {name, policy};
}

RunningApplication FakeWorkspace::start(const std::string& bundleIdentifier) {
  const auto known = installed_.find(bundleIdentifier);
  RunningApplication application;
  application.processIdentifier = ++lastProcess_;
  application.bundleIdentifier = bundleIdentifier;
  application.localizedName = known == installed_.end() ? bundleIdentifier : known->second.name;
  application.activationPolicy = known == installed_.end() ? ActivationPolicy::regular : known->second.policy;
  application.window = ++lastWindow_;
  running_.push_back(application);
  if (application.activationPolicy == ActivationPolicy::regular) bringForward(application.processIdentifier);
  return application;
}

RunningApplication* FakeWorkspace::find(std::int32_t processIdentifier) {
  const auto found = std::find_if(running_.begin(), running_.end(), [processIdentifier](const auto& application) {
    return application.processIdentifier == processIdentifier;
  });
  return found == running_.end() ? nullptr : &*found;
}

void FakeWorkspace::bringForward(std::int32_t processIdentifier) {
  const RunningApplication* application = find(processIdentifier);
  if (application == nullptr || frontmost_ == processIdentifier) return;
  frontmost_ = processIdentifier;
  const RunningApplication copy = *application;
  activated_.send(copy);
}

void FakeWorkspace::hide(std::int32_t processIdentifier) {
  if (RunningApplication* application = find(processIdentifier)) application->isHidden = true;
  if (frontmost_ == processIdentifier) frontmost_ = 0;
}

void FakeWorkspace::unhide(const RunningApplication& application) {
  if (RunningApplication* found = find(application.processIdentifier)) found->isHidden = false;
}

void FakeWorkspace::closeWindows(std::int32_t processIdentifier) {
  if (RunningApplication* application = find(processIdentifier)) application->window = 0;
}

void FakeWorkspace::quit(std::int32_t processIdentifier) {
  std::erase_if(running_, [processIdentifier](const auto& application) {
    return application.processIdentifier == processIdentifier;
  });
  if (frontmost_ == processIdentifier) frontmost_ = 0;
}

std::optional<RunningApplication> FakeWorkspace::frontmostApplication() const {
  for (const RunningApplication& application : running_) {
    if (application.processIdentifier == frontmost_) return application;
  }
  return std::nullopt;
}

std::vector<RunningApplication> FakeWorkspace::runningApplications(std::string_view bundleIdentifier) const {
  std::vector<RunningApplication> found;
  std::copy_if(
      running_.begin(), running_.end(), std::back_inserter(found),
      [bundleIdentifier](const auto& application) { return application.bundleIdentifier == bundleIdentifier; });
  return found;
}

bool FakeWorkspace::activate(const RunningApplication& application) {
  activationRequests.push_back(application.processIdentifier);
  const RunningApplication* found = find(application.processIdentifier);
  if (found == nullptr || found->window == 0) return false;
  bringForward(application.processIdentifier);
  return true;
}

std::optional<ApplicationLocation> FakeWorkspace::urlForApplication(std::string_view bundleIdentifier) const {
  if (!installed_.contains(bundleIdentifier)) return std::nullopt;
  return ApplicationLocation{std::string(kApplicationsFolder) + std::string(bundleIdentifier)};
}

void FakeWorkspace::openApplication(const ApplicationLocation& location) {
  openedApplications.push_back(location.value);
  if (!location.value.starts_with(kApplicationsFolder)) return;
  const std::string bundleIdentifier = location.value.substr(kApplicationsFolder.size());
  const auto instances = runningApplications(bundleIdentifier);
  if (instances.empty()) {
    start(bundleIdentifier);
  } else {
    bringForward(instances.front().processIdentifier);
  }
}

std::optional<ApplicationLocation> FakeWorkspace::applicationAtPath(std::string_view path) const {
  if (!systemPaths.contains(path)) return std::nullopt;
  return ApplicationLocation{std::string(path)};
}

std::optional<std::string> FakeWorkspace::applicationName(std::string_view bundleIdentifier) const {
  const auto found = installed_.find(bundleIdentifier);
  if (found == installed_.end()) return std::nullopt;
  return found->second.name;
}

}  // namespace rondora
