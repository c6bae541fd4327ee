#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "platform/workspace.h"

namespace rondora {

/// Records the order of application activation. Main thread.
class RunningAppsActivationHistory {
 public:
  /// When there are more, the least recently active application is dropped.
  static constexpr std::size_t kCapacity = 64;

  explicit RunningAppsActivationHistory(Workspace& workspace) : workspace_(workspace) {}

  /// Begins with the application that is frontmost now. Further calls change nothing.
  void startObservingIfNeeded();
  /// Identifiers of the applications, the most recently activated first, each once.
  const std::vector<std::string>& bundleIdentifiers() const { return bundleIdentifiers_; }

 private:
  void noteActivation(const RunningApplication& application);

  Workspace& workspace_;
  std::vector<std::string> bundleIdentifiers_;
  Subscription activationObserver_;
  WeakSelf<RunningAppsActivationHistory> weakSelf_{this};
};

}  // namespace rondora
