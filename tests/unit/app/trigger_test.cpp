#include <gmock/gmock.h>

#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TriggerTest : public ProgramTest {
 protected:
  TriggerTest() {
    launchWith(
        {menu("chord", {49, kControlOption}), menu("plain", {kKKey, 0}), menu("digit", {kOneKey, carbon::kControl})});
  }
  /// Two steps of one chord lie a human moment apart.
  void tapAgain(std::uint16_t key) {
    press({key});
    desktop.time.advance(0.1);
    release({key});
  }
};

TEST_F(TriggerTest, ChordIsHeldTappedToStepAndLetGoToChoose) {
  pressChord();
  ASSERT_EQ(shownMenu(), "chord");
  desktop.keyboard.repeat(Key::kSpaceKey);
  desktop.time.runUntilIdle();
  EXPECT_EQ(highlightedItem(), "");
  release({Key::kSpaceKey});
  tapAgain(Key::kSpaceKey);
  EXPECT_EQ(highlightedItem(), "browser");
  tapAgain(Key::kSpaceKey);
  EXPECT_EQ(highlightedItem(), "snippet");
  for (int step = 0; step < 3; ++step) tapAgain(Key::kSpaceKey);
  EXPECT_EQ(highlightedItem(), "browser");

  release({Key::kOptionKey});
  EXPECT_FALSE(isMenuUp());
  EXPECT_EQ(frontApplication(), "org.example.browser");
}

TEST_F(TriggerTest, LettingAChordGoWithoutAChoiceGoesBackOnce) {
  pressChord();
  press({Key::kShiftKey});
  release({Key::kShiftKey});
  EXPECT_TRUE(isMenuUp());
  release({Key::kSpaceKey, Key::kControlKey});
  EXPECT_FALSE(isMenuUp());
  EXPECT_THAT(desktop.workspace.activationRequests, ElementsAre(editor.processIdentifier));
  release({Key::kOptionKey});
  EXPECT_EQ(desktop.workspace.activationRequests.size(), 1U);
  EXPECT_EQ(frontApplication(), "org.example.editor");
}

TEST_F(TriggerTest, TriggersLetGoBeforeTheMenuIsUpCloseItAtOnce) {
  desktop.keyboard.pressAll({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey});
  releaseChord();
  EXPECT_EQ(desktop.overlay.panels.size(), 1U);
  EXPECT_FALSE(isMenuUp());
  EXPECT_THAT(desktop.workspace.activationRequests, ElementsAre(editor.processIdentifier));
  desktop.keyboard.press(kKKey);
  release({kKKey});
  EXPECT_EQ(desktop.overlay.panels.size(), 2U);
  EXPECT_FALSE(isMenuUp());
}

TEST_F(TriggerTest, PlainKeyIsHeldWhilePointingAndAKeyUpThatGotLostIsMadeUpForByTheNextOne) {
  press({kKKey});
  ASSERT_EQ(shownMenu(), "plain");
  desktop.keyboard.repeat(kKKey);
  pointAtSector(0);
  desktop.keyboard.repeat(kKKey);
  desktop.keyboard.releaseUnseen(kKKey);
  press({kKKey});
  EXPECT_EQ(highlightedItem(), "browser");
  EXPECT_TRUE(isMenuUp());
  release({kKKey});
  EXPECT_FALSE(isMenuUp());
  EXPECT_EQ(frontApplication(), "org.example.browser");
}

TEST_F(TriggerTest, AnotherMenusKeyClosesAndOpensNothing) {
  pressChord();
  release({Key::kSpaceKey});
  desktop.keyboard.releaseUnseen(Key::kOptionKey);
  press({kOneKey});
  EXPECT_FALSE(isMenuUp());
  EXPECT_EQ(desktop.overlay.panels.size(), 1U);
  EXPECT_THAT(desktop.workspace.activationRequests, ElementsAre(editor.processIdentifier));

  release({kOneKey});
  press({kOneKey});
  EXPECT_EQ(shownMenu(), "digit");
}

TEST_F(TriggerTest, ATriggerWhoseKeyIsALabelChoosesInsteadOfStepping) {
  press({Key::kControlKey, kOneKey});
  ASSERT_EQ(shownMenu(), "digit");
  desktop.keyboard.repeat(kOneKey);
  desktop.time.runUntilIdle();
  ASSERT_TRUE(isMenuUp());
  release({kOneKey});
  press({kOneKey});
  EXPECT_FALSE(isMenuUp());
  desktop.time.advance(0.15);
  EXPECT_EQ(desktop.pasteboard.string, "hello");
}

class SharedTriggerTest : public ProgramTest {};

TEST_F(SharedTriggerTest, FirstMenuOpensAndTheOneOnScreenKeepsTheKey) {
  PieMenu second = menu("second", {49, kControlOption});
  second.trackpadFingerCount = 4;
  launchWith({menu("other", {kKKey, 0}), menu("first", {49, kControlOption}), second});
  pressChord();
  EXPECT_EQ(shownMenu(), "first");
  release({Key::kSpaceKey, Key::kControlKey});

  program.delegate.trackpadGestureMonitor().onTap(4);
  ASSERT_EQ(shownMenu(), "second");
  press({Key::kControlKey, Key::kSpaceKey});
  EXPECT_EQ(shownMenu(), "second");
  EXPECT_EQ(highlightedItem(), "browser");
}

TEST_F(SharedTriggerTest, ATapOrARequestOpensAMenuAndASecondOneCloses) {
  PieMenu keyless = menu("keyless", {});
  keyless.trackpadFingerCount = 3;
  launchWith({menu("chord", {49, kControlOption}), keyless});
  const auto tap = [&](int fingers) { program.delegate.trackpadGestureMonitor().onTap(fingers); };
  const auto request = [&] { EXPECT_TRUE(program.delegate.trigger(keyless.id.string())); };
  tap(5);
  EXPECT_FALSE(isMenuUp());
  for (const bool isTap : {true, false}) {
    const auto trigger = [&] {
      isTap ? tap(3) : request();
      desktop.time.runUntilIdle();
    };
    desktop.workspace.activationRequests.clear();
    trigger();
    ASSERT_EQ(shownMenu(), "keyless");
    press({Key::kControlKey});
    release({Key::kControlKey});
    EXPECT_EQ(shownMenu(), "keyless") << "nothing is held, so nothing is let go";
    trigger();
    EXPECT_FALSE(isMenuUp());
    EXPECT_THAT(desktop.workspace.activationRequests, ElementsAre(editor.processIdentifier));

    pressChord();
    ASSERT_EQ(shownMenu(), "chord");
    trigger();
    EXPECT_FALSE(isMenuUp());
    releaseChord();
  }
}

TEST_F(SharedTriggerTest, ARequestForASpecialMenuFollowsItsSwitchAndOneForNoMenuIsRefusedWithOneLine) {
  PieMenu disabled = runningAppsMenu({});
  disabled.runningAppsMenuEnabled = false;
  const PieMenu commands = appCommandsMenu({});
  launchWith({disabled, commands});
  EXPECT_TRUE(program.delegate.trigger(disabled.id.string()));
  EXPECT_TRUE(program.delegate.trigger(commands.id.string()));
  desktop.time.runUntilIdle();
  EXPECT_FALSE(isMenuUp());
  ASSERT_EQ(program.subActions.requests.size(), 1U);
  program.subActions.requests.front()({PieSubAction{}});
  EXPECT_EQ(shownMenu(), "commands");

  EXPECT_THAT(desktop.log.lines, IsEmpty());
  const Uuid unknown = desktop.random.uuid();
  EXPECT_FALSE(program.delegate.trigger(unknown.string()));
  EXPECT_FALSE(program.delegate.trigger("chord\nerror: forged"));
  EXPECT_THAT(desktop.log.lines,
              ElementsAre(FakeLog::Line{LogLevel::error, "trigger skipped: no menu has the id " + unknown.string()},
                          FakeLog::Line{LogLevel::error, "trigger skipped: this is no menu's id"}));
}

/// No hot-key service has the Fn key, so the test says when it is pressed.
TEST_F(SharedTriggerTest, FnAloneIsHeldAndLetGoToChooseAndNeverSteps) {
  useMenus({menu("fn", {kFnKeyCode, 0})});
  const AppServices services = program.services();
  MenuSwitchboard switchboard(services);
  switchboard.handleHotkeyPressed({0});
  ASSERT_EQ(shownMenu(), "fn");
  pointAtSector(0);
  switchboard.handleHotkeyReleased({0});
  EXPECT_FALSE(isMenuUp());
  EXPECT_EQ(frontApplication(), "org.example.browser");

  switchboard.handleHotkeyPressed({0});
  switchboard.handleHotkeyPressed({0});
  EXPECT_FALSE(isMenuUp());
  EXPECT_EQ(desktop.overlay.panels.size(), 2U);
}

TEST_F(SharedTriggerTest, AnApplicationThatQuitWhileItsRingWasOpenIsNotStartedAgain) {
  launchWith({runningAppsMenu({kKKey, 0})});
  press({kKKey});
  program.overlay->advanceRunningAppsSelection();
  EXPECT_EQ(highlightedItem(), "Browser");
  desktop.workspace.quit(browser.processIdentifier);
  release({kKKey});
  EXPECT_THAT(desktop.workspace.openedApplications, testing::IsEmpty());
  EXPECT_EQ(frontApplication(), "org.example.editor");
}

}  // namespace
}  // namespace rondora
