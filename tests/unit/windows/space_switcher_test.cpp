#include "windows/space_switcher.h"

#include <gmock/gmock.h>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::IsEmpty;

constexpr std::uint32_t kWindow = 7;
using Key = SpaceSwitcher::KeyCombination;

class SpaceSwitcherTest : public ::testing::Test {
 protected:
  void placeWindow(std::uint64_t space, std::vector<DisplaySpaces> displays) {
    desktop_.windowServer.spacesOfWindows[kWindow] = {space};
    desktop_.windowServer.displays = std::move(displays);
  }

  FakePlatform desktop_;
  SpaceSwitcher switcher_{
      {desktop_.windowServer, desktop_.windowServer, desktop_.keyEvents, desktop_.time, desktop_.log}};
};

TEST_F(SpaceSwitcherTest, PressesTheShortcutOncePerSpace) {
  placeWindow(10, {{{10, 20, 30}, 30}});
  desktop_.windowServer.symbolicHotKeys[79] = {true, {{65535, 0x1007B, 0x100000}}};
  switcher_.switchSpaceWithSystemShortcut(kWindow, "editor");
  EXPECT_TRUE(desktop_.log.contains(LogLevel::standard, "focus editor: switching space by -2 step(s) via shortcut"));
  const auto& posted = desktop_.keyEvents.posted;
  ASSERT_EQ(posted.size(), 4U);
  for (std::size_t i = 0; i < posted.size(); ++i) {
    EXPECT_EQ(posted[i].event, (SyntheticKeyEvent{KeyEventSourceState::hidSystemState, 0x7B, i % 2 == 0, 0x100000}));
    EXPECT_EQ(posted[i].tap, KeyEventTap::hid);
  }
  EXPECT_EQ(posted[0].uptime, posted[1].uptime);
  EXPECT_NEAR(posted[2].uptime - posted[1].uptime, 0.06, 1e-9);
}

TEST_F(SpaceSwitcherTest, SkipsDisabledAndImpossibleShortcuts) {
  placeWindow(20, {{{10, 20}, 10}});
  desktop_.keyEvents.missingKeys = {124};
  switcher_.switchSpaceWithSystemShortcut(kWindow, "editor");
  desktop_.keyEvents.missingKeys.clear();
  desktop_.windowServer.symbolicHotKeys[81] = {false, {{65535, 124, 0x840000}}};
  switcher_.switchSpaceWithSystemShortcut(kWindow, "?");
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
  EXPECT_EQ(desktop_.log.lines.back().text, "focus ?: space shortcut 81 disabled");
}

TEST_F(SpaceSwitcherTest, CountsSpacesOnTheWindowsDisplay) {
  EXPECT_EQ(switcher_.spaceSteps(kWindow), std::nullopt) << "the system reports nothing";
  placeWindow(6, {{{1, 2}, 2}, {{5, std::nullopt, 6, 7}, 7}, {{6, 9}, 9}});
  EXPECT_EQ(switcher_.spaceSteps(kWindow), -1) << "spaces without an identifier do not count";
  placeWindow(8, {{{1, 2}, 2}});
  EXPECT_EQ(switcher_.spaceSteps(kWindow), std::nullopt) << "no display has the space";
  placeWindow(2, {{{1, 2}, std::nullopt}, {{2, 3}, 3}});
  EXPECT_EQ(switcher_.spaceSteps(kWindow), std::nullopt) << "the first display with the space reports no current one";
  desktop_.windowServer.spacesOfWindows[kWindow].clear();
  EXPECT_EQ(switcher_.spaceSteps(kWindow), std::nullopt);
  placeWindow(2, {{{1, 2}, 2}});
  switcher_.switchSpaceWithSystemShortcut(kWindow, "editor");
  EXPECT_THAT(desktop_.log.lines, IsEmpty()) << "already there";
}

TEST_F(SpaceSwitcherTest, FallsBackToControlArrow) {
  auto& settings = desktop_.windowServer.symbolicHotKeys;
  const Key left{123, 0x840000};
  EXPECT_EQ(switcher_.configuredKey(SpaceShortcut::left), left);
  EXPECT_EQ(switcher_.configuredKey(SpaceShortcut::right), (Key{124, 0x840000}));
  settings[79] = {std::nullopt, std::nullopt};
  EXPECT_EQ(switcher_.configuredKey(SpaceShortcut::left), left);
  settings[79] = {true, {{1, 2}}};
  EXPECT_EQ(switcher_.configuredKey(SpaceShortcut::left), left);
  settings[79] = {std::nullopt, {{0, 0x2A, 0x40000, 5}}};
  EXPECT_EQ(switcher_.configuredKey(SpaceShortcut::left), (Key{0x2A, 0x40000}));
}

}  // namespace
}  // namespace rondora
