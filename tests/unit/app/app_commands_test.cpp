#include <gmock/gmock.h>

#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class AppCommandsTest : public ProgramTest {
 protected:
  void useTrigger(HotkeyConfig hotkey) { launchWith({appCommandsMenu(hotkey)}); }
  void useChord() { useTrigger({49, kControlOption}); }
  void answer(std::size_t request, const std::vector<std::string>& titles) {
    std::vector<PieSubAction> commands(titles.size());
    for (std::size_t i = 0; i < titles.size(); ++i) commands[i].title = titles[i];
    program.subActions.requests.at(request)(commands);
    desktop.time.runUntilIdle();
  }
};

TEST_F(AppCommandsTest, ChosenCommandRunsAgainstThePreviousApplication) {
  useChord();
  pressChord();
  EXPECT_FALSE(isMenuUp());
  answer(0, {"Save", "Close"});
  ASSERT_EQ(shownMenu(), "commands");
  release({Key::kSpaceKey});
  press({Key::kSpaceKey});
  EXPECT_EQ(highlightedItem(), "Save");
  release({Key::kSpaceKey, Key::kControlKey});
  EXPECT_FALSE(isMenuUp());
  release({Key::kOptionKey});

  pressChord();
  answer(1, {"a", "b", "c", "d"});
  pointAtSector(2);
  desktop.overlay.click();
  EXPECT_THAT(program.subActions.performed,
              ElementsAre(Pair("Save", editor.processIdentifier), Pair("c", editor.processIdentifier)));
  EXPECT_THAT(desktop.workspace.activationRequests, IsEmpty());
}

TEST_F(AppCommandsTest, ATriggerLetGoTooEarlyShowsNothing) {
  useTrigger({kKKey, 0});
  press({kKKey});
  release({kKKey});
  answer(0, {"Save"});
  useMenus({appCommandsMenu({49, kControlOption})});
  pressChord();
  release({Key::kSpaceKey, Key::kOptionKey});
  answer(1, {"Save"});
  EXPECT_THAT(desktop.overlay.panels, IsEmpty());
  EXPECT_THAT(desktop.workspace.activationRequests, IsEmpty());

  release({Key::kControlKey});
  pressChord();
  release({Key::kSpaceKey});
  answer(2, {"Save"});
  EXPECT_EQ(shownMenu(), "commands") << "the key may go up while the modifiers stay";
}

TEST_F(AppCommandsTest, OnlyTheNewestRequestMayShowSomething) {
  useChord();
  pressChord();
  release({Key::kSpaceKey});
  press({Key::kSpaceKey});
  ASSERT_EQ(program.subActions.requests.size(), 2U);
  answer(0, {"stale"});
  EXPECT_FALSE(isMenuUp());
  answer(1, {"fresh"});
  ASSERT_TRUE(isMenuUp());
  program.overlay->advanceRunningAppsSelection();
  EXPECT_EQ(highlightedItem(), "fresh");
}

TEST_F(AppCommandsTest, NothingIsShownWithoutCommandsTargetOrIdentifier) {
  useChord();
  pressChord();
  answer(0, {});
  EXPECT_FALSE(isMenuUp());

  release({Key::kSpaceKey});
  program.subActions.target->bundleIdentifier.reset();
  press({Key::kSpaceKey});
  release({Key::kSpaceKey});
  program.subActions.target.reset();
  press({Key::kSpaceKey});
  EXPECT_EQ(program.subActions.requests.size(), 1U);
}

TEST_F(AppCommandsTest, AMenuOpenedMeanwhileStays) {
  launchWith({appCommandsMenu({49, kControlOption}), menu("plain", {kKKey, kControlOption})});
  pressChord();
  press({kKKey});
  ASSERT_EQ(shownMenu(), "plain");
  answer(0, {"Save"});
  EXPECT_EQ(shownMenu(), "plain");
}

TEST_F(AppCommandsTest, APendingChordRequestDoesNotSwallowAnotherMenusRelease) {
  launchWith({appCommandsMenu({49, kControlOption}), menu("plain", {kKKey, 0})});
  pressChord();
  releaseChord();
  press({kKKey});
  ASSERT_EQ(shownMenu(), "plain");
  release({kKKey});
  EXPECT_FALSE(isMenuUp());
}

TEST_F(AppCommandsTest, CommandsOfAnActivatedApplicationAreReadAheadForAMenuThatCanOpen) {
  useTrigger({});
  desktop.workspace.bringForward(browser.processIdentifier);
  PieMenu disabled = appCommandsMenu({49, kControlOption});
  disabled.runningAppsMenuEnabled = false;
  useMenus({disabled});
  desktop.workspace.bringForward(editor.processIdentifier);
  EXPECT_THAT(program.subActions.prefetched, IsEmpty());

  PieMenu tapped = appCommandsMenu({});
  tapped.trackpadFingerCount = 3;
  useMenus({tapped});
  desktop.workspace.bringForward(browser.processIdentifier);
  useMenus({appCommandsMenu({49, kControlOption})});
  desktop.workspace.bringForward(editor.processIdentifier);
  desktop.workspace.install("org.example.agent", "Agent", ActivationPolicy::accessory);
  desktop.workspace.bringForward(desktop.workspace.start("org.example.agent").processIdentifier);
  desktop.workspace.start(desktop.environment.identifier);
  EXPECT_THAT(program.subActions.prefetched, ElementsAre(browser.processIdentifier, editor.processIdentifier));
}

}  // namespace
}  // namespace rondora
