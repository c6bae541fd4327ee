#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/action_services.h"
#include "app/app_delegate.h"
#include "base/notification_center.h"
#include "commands/sub_actions.h"
#include "doubles/fake_platform.h"
#include "localization/localization_store.h"
#include "permissions/permissions_monitor.h"
#include "running_apps/running_apps_activation_history.h"
#include "running_apps/running_apps_menu_items.h"
#include "storage/config_manager.h"

namespace rondora {

/// Applications that tell their commands when the test says so.
class FakeSubActions final : public SubActions {
 public:
  std::optional<RunningApplication> targetApp() override { return target; }
  void resolve(const RunningApplication& /*application*/, Completion completion) override {
    requests.push_back(std::move(completion));
  }
  void prefetch(const RunningApplication& application) override { prefetched.push_back(application.processIdentifier); }
  void perform(const PieSubAction& action, const std::optional<RunningApplication>& previousApp) override {
    performed.emplace_back(action.title, previousApp ? previousApp->processIdentifier : 0);
  }

  std::optional<RunningApplication> target;
  std::vector<Completion> requests;
  std::vector<std::int32_t> prefetched;
  std::vector<std::pair<std::string, std::int32_t>> performed;
};

/// The program as the composition root puts it together, on a desktop of its own.
struct Program {
  explicit Program(FakePlatform& on);

  AppServices services();
  std::unique_ptr<PieMenuWindowController> makePieMenuWindow();

  FakePlatform& desktop;
  NotificationCenter notifications;
  ConfigManager configManager;
  LocalizationStore localization;
  PermissionsMonitor permissions;
  RunningAppsActivationHistory history;
  RunningAppsMenuItems runningAppsMenuItems;
  ActionServices actions;
  FakeSubActions subActions;
  std::function<void()> whenOverlayIsMade;
  int switcherRestorations = 0;
  std::vector<std::optional<std::string>> statusItemProblems;
  PieMenuWindowController* overlay = nullptr;
  AppDelegate delegate;
};

/// A desktop on which a text editor is in front of a browser and the user has seen the introduction long ago.
class ProgramTest : public testing::Test {
 protected:
  using Key = FakeKeyboard::Key;
  static constexpr std::uint16_t kKKey = 40;
  static constexpr std::uint16_t kOneKey = 18;
  static constexpr std::int64_t kControlOption = carbon::kControl | carbon::kOption;
  static constexpr Point kPointer{600, 400};

  ProgramTest();

  /// A standard menu's items, in order, open a browser, copy "hello", send key 7, do nothing; others have none.
  PieMenu menu(const std::string& name, HotkeyConfig hotkey, PieMenuKind kind = PieMenuKind::standard);
  PieMenu runningAppsMenu(HotkeyConfig hotkey) { return menu("running", hotkey, PieMenuKind::runningApps); }
  PieMenu appCommandsMenu(HotkeyConfig hotkey) { return menu("commands", hotkey, PieMenuKind::appCommands); }
  /// Saves a document with these menus; special ones that are missing are added without a trigger.
  void useMenus(std::vector<PieMenu> menus);
  void launch();
  void launchWith(std::vector<PieMenu> menus) {
    useMenus(std::move(menus));
    launch();
  }

  /// Presses and releases go through the main queue, as everything else.
  void press(std::initializer_list<std::uint16_t> keys);
  void pressChord() { press({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey}); }
  void release(std::initializer_list<std::uint16_t> keys);
  void releaseChord() { release({Key::kSpaceKey, Key::kOptionKey, Key::kControlKey}); }
  void pointAtSector(std::size_t index);
  bool isMenuUp() const { return desktop.overlay.holdsKeyboard(); }
  std::string shownMenu() const;
  std::string highlightedItem() const;
  std::string frontApplication() const { return desktop.workspace.frontmostApplication()->bundleIdentifier.value(); }

  FakePlatform desktop;
  RunningApplication browser;
  RunningApplication editor;
  Program program{desktop};
};

}  // namespace rondora
