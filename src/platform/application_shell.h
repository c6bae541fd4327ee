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
  /// Starts another instance of the program and then calls `opened`, also when that failed. A system on which only one
  /// instance can run at a time starts it when this one has ended.
  virtual void openNewInstance(std::function<void()> opened) = 0;
  /// The shell calls it when the last window closes, and ends the program on true.
  virtual void setShouldTerminateAfterLastWindowClosed(std::function<bool()> shouldTerminate) = 0;
  [[nodiscard]] virtual Subscription onDidBecomeActive(std::function<void()> observer) = 0;
};

}  // namespace rondora
