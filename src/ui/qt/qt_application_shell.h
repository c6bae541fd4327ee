#pragma once

#include <QObject>

#include "platform/application_shell.h"

namespace rondora {

/// The application object as the program's place on the desktop.
class QtApplicationShell : public ApplicationShell {
 public:
  QtApplicationShell();

  /// A program without windows has no entry in any dock or task bar of its own accord; only quitting depends on it.
  void setActivationPolicy(ActivationPolicy policy) override;
  /// Kept, not shown: the status item's menu has the same entries.
  void setMainMenu(std::vector<MenuEntry> entries) override;
  void activateIgnoringOtherApps() override;
  void terminate() override;
  void relaunch() override;
  Subscription onDidBecomeActive(std::function<void()> observer) override;

  const std::vector<MenuEntry>& mainMenu() const { return mainMenu_; }

 private:
  std::vector<MenuEntry> mainMenu_;
  Signal<> didBecomeActive_;
  QObject context_;
};

}  // namespace rondora
