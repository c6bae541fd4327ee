#pragma once

#include <QObject>
#include <memory>

#include "platform/application_shell.h"

namespace rondora {

/// The application object as the program's place on the desktop.
///
/// However the end is asked for (terminate, a signal, the session manager), the event loop ends and no window is closed
/// on the way: what a window does when the user closes it must not happen. The session manager is told not to start the
/// program by itself the next time; that is what the login item is for.
class QtApplicationShell : public ApplicationShell {
 public:
  QtApplicationShell();
  ~QtApplicationShell() override;

  /// A program without windows has no entry in any dock or task bar of its own accord; only quitting depends on it.
  void setActivationPolicy(ActivationPolicy policy) override;
  /// Kept, not shown: the status item's menu has the same entries.
  void setMainMenu(std::vector<MenuEntry> entries) override;
  void activateIgnoringOtherApps() override;
  void terminate() override;
  /// Ends the event loop; the new instance starts when this one has given everything back.
  void relaunch() override;
  bool isRelaunchRequested() const { return isRelaunchRequested_; }
  Subscription onDidBecomeActive(std::function<void()> observer) override;

  const std::vector<MenuEntry>& mainMenu() const { return mainMenu_; }

 private:
  std::vector<MenuEntry> mainMenu_;
  bool isRelaunchRequested_ = false;
  Signal<> didBecomeActive_;
  /// Receives for us; taken off the application object with this.
  std::unique_ptr<QObject> context_;
};

}  // namespace rondora
