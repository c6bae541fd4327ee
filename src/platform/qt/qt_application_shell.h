#pragma once

#include <QObject>
#include <memory>

#include "platform/application_shell.h"

namespace rondora {

/// The toolkit's application object as the application shell.
///
/// Every way to quit (terminate, a signal, the session manager) ends the event loop without closing a window, because a
/// close handler must run only when the user closes the window. The session manager is asked not to restart the
/// program; that is the login item's task.
class QtApplicationShell : public ApplicationShell {
 public:
  QtApplicationShell();
  ~QtApplicationShell() override;

  /// A program without windows has no entry in any dock or task bar of its own accord; only quitting depends on it.
  void setActivationPolicy(ActivationPolicy policy) override;
  /// Stored, not shown: the status item's menu has the same entries.
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
  /// Receiver of the connections and the event filter; disconnected when destroyed.
  std::unique_ptr<QObject> context_;
};

}  // namespace rondora
