#pragma once

#include <functional>
#include <vector>

#include "base/observable.h"
#include "platform/status_item.h"
#include "platform/workspace.h"

namespace rondora {

/// The running program as the system sees it. Main thread.
class ApplicationShell {
 public:
  virtual ~ApplicationShell() = default;

  virtual void setActivationPolicy(ActivationPolicy policy) = 0;
  /// Replaces the application menu; no effect on desktops without one.
  virtual void setMainMenu(std::vector<MenuEntry> entries) = 0;
  virtual void activateIgnoringOtherApps() = 0;
  /// Starts an orderly shutdown.
  virtual void terminate() = 0;
  /// Starts another instance and then ends this one.
  virtual void relaunch() = 0;
  [[nodiscard]] virtual Subscription onDidBecomeActive(std::function<void()> observer) = 0;
};

}  // namespace rondora
