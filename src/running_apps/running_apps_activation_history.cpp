#include "running_apps/running_apps_activation_history.h"

namespace rondora {

void RunningAppsActivationHistory::startObservingIfNeeded() {
  if (activationObserver_) return;
  activationObserver_ = workspace_.onDidActivateApplication(
      weakSelf_.bind([](RunningAppsActivationHistory& self, const RunningApplication& application) {
        self.noteActivation(application);
      }));
  if (const auto frontmost = workspace_.frontmostApplication()) noteActivation(*frontmost);
}

void RunningAppsActivationHistory::noteActivation(const RunningApplication& application) {
  if (!application.bundleIdentifier) return;
  std::erase(bundleIdentifiers_, *application.bundleIdentifier);
  bundleIdentifiers_.insert(bundleIdentifiers_.begin(), *application.bundleIdentifier);
  if (bundleIdentifiers_.size() > kCapacity) bundleIdentifiers_.resize(kCapacity);
}

}  // namespace rondora
