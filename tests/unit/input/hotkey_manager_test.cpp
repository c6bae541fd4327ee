#include "input/hotkeys/hotkey_manager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "doubles/allocation_counter.h"
#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Indices = std::vector<std::uint32_t>;

constexpr std::int64_t kControlOption = carbon::kControl | carbon::kOption;

class HotkeyManagerTest : public testing::Test {
 protected:
  HotkeyManagerTest() {
    manager.onHotkeyPressed = [this](HotkeyManager::MenuIndices menus, ModifierHold) {
      pressed.emplace_back(begin(menus), end(menus));
    };
    manager.onHotkeyReleased = [this](HotkeyManager::MenuIndices menus) {
      released.emplace_back(begin(menus), end(menus));
    };
  }

  static PieMenu menuWith(std::int64_t keyCode, std::int64_t carbonModifiers) {
    PieMenu menu;
    menu.hotkey = {keyCode, carbonModifiers};
    return menu;
  }
  int send(std::uint32_t kind, std::uint32_t id) {
    const HotKeyEvent event{kind, {0x50494521, id}};
    return desktop.keyboard.send(&event);
  }

  FakePlatform desktop;
  std::vector<Indices> pressed;
  std::vector<Indices> released;
  NativeAppSwitcher switcher{desktop.keyboard.taps};
  HotkeyManager manager{
      desktop.keyboard,
      {desktop.keyboard.taps, desktop.keyboard.taps, desktop.keyboard, switcher, desktop.time, desktop.log}};
};

TEST_F(HotkeyManagerTest, ReportsAllMenusOfASharedHotkey) {
  manager.registerAll({menuWith(0, 0), menuWith(49, kControlOption), menuWith(-1, 0), menuWith(49, kControlOption)});
  EXPECT_EQ(desktop.keyboard.registrationCount(), 2U);
  desktop.keyboard.pressAll({FakeKeyboard::kControlKey, FakeKeyboard::kOptionKey, FakeKeyboard::kSpaceKey});
  EXPECT_THAT(pressed, ElementsAre(ElementsAre(1, 3)));
  EXPECT_THAT(released, IsEmpty());

  desktop.keyboard.releaseAll({FakeKeyboard::kControlKey, FakeKeyboard::kSpaceKey});
  EXPECT_THAT(released, ElementsAre(ElementsAre(1, 3)));
}

TEST_F(HotkeyManagerTest, LeavesFnToTheTapAndDisabledMenusAlone) {
  PieMenu disabled = menuWith(40, 0);
  disabled.kind = PieMenuKind::appCommands;
  disabled.runningAppsMenuEnabled = false;
  manager.registerAll({menuWith(63, 0), menuWith(0, carbon::kFunction | carbon::kShift), disabled});
  EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  EXPECT_THAT(manager.failedRegistrationMenuIndices(), IsEmpty());
}

TEST_F(HotkeyManagerTest, CountsRefusedHotkeysAsFailuresOfAllTheirMenus) {
  desktop.keyboard.foreignOwners.insert({49, 0x1800});
  manager.registerAll({menuWith(49, kControlOption), menuWith(0, 0), menuWith(49, kControlOption),
                       menuWith(INT64_MAX, 0), menuWith(0, std::int64_t{1} << 40), menuWith(0x1'0000'0031, 0)});
  EXPECT_EQ(desktop.keyboard.registrationCount(), 1U);
  EXPECT_THAT(manager.failedRegistrationMenuIndices(), ElementsAre(0, 2, 3, 4, 5));
  desktop.keyboard.foreignOwners.clear();
  manager.retryRefused();
  EXPECT_EQ(desktop.keyboard.registrationCount(), 2U);
  EXPECT_THAT(manager.failedRegistrationMenuIndices(), ElementsAre(3, 4, 5));
  desktop.keyboard.pressAll({FakeKeyboard::kControlKey, FakeKeyboard::kOptionKey, FakeKeyboard::kSpaceKey});
  EXPECT_THAT(pressed, ElementsAre(ElementsAre(0, 2)));
  EXPECT_THAT(desktop.log.lines, IsEmpty());
  manager.unregisterAll();
  EXPECT_THAT(manager.failedRegistrationMenuIndices(), IsEmpty());
}

TEST_F(HotkeyManagerTest, BacksUpCommandTabBesideTheTap) {
  manager.registerAll({menuWith(48, carbon::kCommand)});
  EXPECT_TRUE(desktop.keyboard.isRegistered(48, 0x100));
  EXPECT_TRUE(manager.hidTap()->carbonBacksUpCommandTab());
  EXPECT_TRUE(desktop.log.contains(LogLevel::standard, "carbon backup for ⌘Tab-style hotkey registered=true"));

  desktop.keyboard.foreignOwners.insert({48, 0x100});
  manager.registerAll({menuWith(48, carbon::kCommand)});
  EXPECT_FALSE(manager.hidTap()->carbonBacksUpCommandTab());
  EXPECT_EQ(manager.hidTap()->bindings().size(), 1U);
  EXPECT_THAT(manager.failedRegistrationMenuIndices(), IsEmpty());
  EXPECT_TRUE(desktop.log.contains(LogLevel::standard, "carbon backup for ⌘Tab-style hotkey registered=false"));
}

TEST_F(HotkeyManagerTest, RegisteringAgainLeavesNothingBehind) {
  manager.registerAll({menuWith(0, 0), menuWith(1, 0)});
  manager.registerAll({menuWith(1, 0)});
  EXPECT_EQ(desktop.keyboard.registrationCount(), 1U);
  EXPECT_EQ(desktop.keyboard.handlerCount(), 1U);
  desktop.keyboard.tap(1);
  EXPECT_THAT(pressed, ElementsAre(ElementsAre(0)));
  manager.unregisterAll();
  EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  EXPECT_EQ(desktop.keyboard.handlerCount(), 0U);
}

TEST_F(HotkeyManagerTest, PassesEventsOnWithoutAllocatingOrLogging) {
  std::size_t reported = 0;
  std::uint32_t last = 0;
  const auto noteFirst = [&](HotkeyManager::MenuIndices indices) {
    reported += indices.size();
    last = indices.back();
  };
  manager.onHotkeyPressed = [&](HotkeyManager::MenuIndices indices, ModifierHold) { noteFirst(indices); };
  manager.onHotkeyReleased = noteFirst;
  manager.registerAll(std::vector<PieMenu>(3, menuWith(49, carbon::kControl)));
  EXPECT_EQ(desktop.keyboard.send(nullptr), 0);
  const std::size_t before = allocationCount();
  for (const std::uint32_t id : {0U, 9U}) {
    for (const std::uint32_t kind : {kEventHotKeyPressed, kEventHotKeyReleased, 9U}) EXPECT_EQ(send(kind, id), 0);
  }
  EXPECT_EQ(allocationCount() - before, 0U);
  EXPECT_THAT(desktop.log.lines, IsEmpty());
  EXPECT_EQ(reported, 2U * 3U + 2U * 1U);
  EXPECT_EQ(last, 9U) << "an unknown id is its own index";
}

}  // namespace
}  // namespace rondora
