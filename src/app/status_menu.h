#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/status_item_watch.h"
#include "localization/localization_store.h"
#include "platform/application_shell.h"
#include "platform/main_queue.h"
#include "platform/status_item.h"

namespace rondora {

/// The program's two menus, each with Settings and Quit: the status item's and the main menu. Main thread.
class StatusMenu {
 public:
  struct Services {
    MainQueue& mainQueue;
    ApplicationShell& shell;
    StatusBar& statusBar;
    const LocalizationStore& localization;
    std::function<void()> openSettings;
    std::function<void()> quitApp;
  };

  explicit StatusMenu(const Services& services) : services_(services) {}

  void setupMainMenu();
  void setupStatusBar();
  /// Re-titles both menus in the current language.
  void refreshLocalizedTitles();
  /// Tells the hotkeys in the tool tip: a line for each.
  void showHotkeys(const std::string& lines);
  /// Whether the status item is known to be visible or hidden.
  bool knowsVisibility() const { return !statusItemWatch_ || statusItemWatch_->isKnown(); }
  /// The reason why the user cannot see the status item; nothing when it is visible or nothing is known.
  std::optional<std::string> visibilityProblem() const;
  /// See StatusItemVisibility::noRoom.
  bool hasNoRoom() const;
  /// Only after `setupStatusBar`.
  [[nodiscard]] Subscription onVisibilityChanged(std::function<void()> observer);

 private:
  MenuEntry settingsEntry() const;
  MenuEntry quitEntry() const;
  std::vector<MenuEntry> entries() const;

  Services services_;
  std::unique_ptr<StatusItem> statusItem_;
  std::unique_ptr<StatusItemWatch> statusItemWatch_;
};

}  // namespace rondora
