#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "localization/localization_store.h"
#include "platform/application_shell.h"
#include "platform/status_item.h"

namespace rondora {

/// The program's two menus, each with Settings and Quit: the status item's and the main menu. Main thread.
class StatusMenu {
 public:
  struct Actions {
    std::function<void()> openSettings;
    std::function<void()> quitApp;
  };

  StatusMenu(ApplicationShell& shell, StatusBar& statusBar, const LocalizationStore& localization, Actions actions)
      : shell_(shell), statusBar_(statusBar), localization_(localization), actions_(std::move(actions)) {}

  void setupMainMenu();
  void setupStatusBar();
  /// Puts both menus into the current language.
  void refreshLocalizedTitles();
  /// Why the user cannot see the status item; nothing when the user can.
  std::optional<std::string> visibilityProblem() const;
  /// Only after `setupStatusBar`.
  [[nodiscard]] Subscription onVisibilityChanged(std::function<void()> observer);

 private:
  MenuEntry settingsEntry() const;
  MenuEntry quitEntry() const;
  std::vector<MenuEntry> entries() const;

  ApplicationShell& shell_;
  StatusBar& statusBar_;
  const LocalizationStore& localization_;
  Actions actions_;
  std::unique_ptr<StatusItem> statusItem_;
};

}  // namespace rondora
