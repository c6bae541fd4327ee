#pragma once

#include <functional>
#include <vector>

#include "base/observable.h"
#include "platform/status_item.h"
#include "platform/workspace.h"

namespace rondora {

/// How an application is opened.
struct OpenConfiguration {
  /// Another instance, also while one runs.
  bool createsNewApplicationInstance = false;
  bool activates = true;
  friend bool operator==(const OpenConfiguration&, const OpenConfiguration&) = default;
};

/// The running program as the system sees it. Main thread.
class ApplicationShell {
 public:
  virtual ~ApplicationShell() = default;

  virtual void setActivationPolicy(ActivationPolicy policy) = 0;
  /// Replaces the application menu; no effect on desktops without one. The first entry opens the settings, the last
  /// ends the program: they have the desktop's keys for that.
  virtual void setMainMenu(std::vector<MenuEntry> entries) = 0;
  virtual void activateIgnoringOtherApps() = 0;
  /// Starts an orderly shutdown.
  virtual void terminate() = 0;
  /// Opens the program itself and then calls `opened` on any thread, also when that failed. A system on which only one
  /// instance can run at a time opens it when this one has ended.
  virtual void openOwnApplication(const OpenConfiguration& configuration, std::function<void()> opened) = 0;
  /// The shell calls it when the last window closes, and ends the program on true.
  virtual void setShouldTerminateAfterLastWindowClosed(std::function<bool()> shouldTerminate) = 0;
  [[nodiscard]] virtual Subscription onDidBecomeActive(std::function<void()> observer) = 0;
};

}  // namespace rondora
