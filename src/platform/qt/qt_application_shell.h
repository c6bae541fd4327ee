#pragma once

#include <QObject>
#include <memory>

#include "platform/application_shell.h"

namespace rondora {

/// The toolkit's application object as the application shell.
///
/// Every way to quit (terminate, a signal, the session manager) ends the event loop without closing a window, because a
/// close handler must run only when the user closes the window. The session manager is told not to restart the program;
/// that is the login item's task.
class QtApplicationShell : public ApplicationShell {
 public:
  QtApplicationShell();
  ~QtApplicationShell() override;

  /// Without effect: on this desktop a program without windows has no entry in a dock or task bar anyway.
  void setActivationPolicy(ActivationPolicy /*policy*/) override {}
  /// Stored, not shown: the status item's menu has the same entries.
  void setMainMenu(std::vector<MenuEntry> entries) override;
  void activateIgnoringOtherApps() override;
  void terminate() override;
  /// Only records the request: `main` starts the new instance, which opens no window, after this one has released its
  /// resources.
  void openOwnApplication(const OpenConfiguration& configuration, std::function<void()> opened) override;
  bool isNewInstanceRequested() const { return isNewInstanceRequested_; }
  void setShouldTerminateAfterLastWindowClosed(std::function<bool()> shouldTerminate) override;
  Subscription onDidBecomeActive(std::function<void()> observer) override;

  const std::vector<MenuEntry>& mainMenu() const { return mainMenu_; }

 private:
  std::vector<MenuEntry> mainMenu_;
  bool isNewInstanceRequested_ = false;
  std::function<bool()> shouldTerminateAfterLastWindowClosed_;
  Signal<> didBecomeActive_;
  /// Receiver of the connections and the event filter; disconnected when destroyed.
  std::unique_ptr<QObject> context_;
};

}  // namespace rondora
