#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/program.h"
#include "commands/sub_actions.h"
#include "doubles/fake_platform.h"

namespace rondora {

/// Supplies an application's commands when the test does.
class FakeSubActions final : public SubActions {
 public:
  std::optional<RunningApplication> targetApp() override { return target; }
  void resolve(const RunningApplication& /*application*/, Completion completion) override {
    requests.push_back(std::move(completion));
  }
  void prefetch(const RunningApplication& application) override { prefetched.push_back(application.processIdentifier); }
  std::optional<std::vector<PieSubAction>> known(const RunningApplication& /*application*/) override {
    return knownCommands;
  }
  void perform(const PieSubAction& action, const std::optional<RunningApplication>& previousApp) override {
    performed.emplace_back(action.title, previousApp ? previousApp->processIdentifier : 0);
  }

  std::optional<RunningApplication> target;
  std::vector<Completion> requests;
  std::optional<std::vector<PieSubAction>> knownCommands;
  std::vector<std::int32_t> prefetched;
  std::vector<std::pair<std::string, std::int32_t>> performed;
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
  void release(std::initializer_list<std::uint16_t> keys);
  void pointAtSector(std::size_t index);
  bool isMenuUp() const { return desktop.overlay.holdsKeyboard(); }
  std::string shownMenu();
  std::string highlightedItem();

  Platform platform();

  FakePlatform desktop;
  FakeSubActions subActions;
  FakeInstanceChannel channel;
  SingleInstance instance{{&channel}, desktop.log};
  /// The last steps of the program's end, in the order in which they ran.
  std::vector<std::string> ending;
  /// The languages set for the toolkit.
  std::vector<AppLanguage> languages;
  bool wantsTrackpads = false;
  bool wantsApplicationMenus = false;
  std::vector<std::string> applicationsWithoutMenus;
  RunningApplication browser;
  RunningApplication editor;
  Program program{platform()};
};

}  // namespace rondora
