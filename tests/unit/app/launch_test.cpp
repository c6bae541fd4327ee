#include <gmock/gmock.h>

#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LaunchTest : public ProgramTest {
 protected:
  void forgetIntroduction() { desktop.defaults.values.clear(); }
  bool marker(std::string_view key) const { return desktop.defaults.boolean(key); }
};

TEST_F(LaunchTest, ComesUpInOrder) {
  bool wasMade = false;
  program.whenOverlayIsMade = [&] {
    wasMade = true;
    EXPECT_TRUE(desktop.defaults.hasValue("NSInitialToolTipDelay"));
    EXPECT_TRUE(marker(AppLaunchState::kAutoOpenMigrationDone));
    EXPECT_THAT(program.history.bundleIdentifiers(), ElementsAre("org.example.editor"));
    EXPECT_EQ(desktop.shell.mainMenu.size(), 3U);
    EXPECT_EQ(desktop.shell.activationPolicy, ActivationPolicy::accessory);
    EXPECT_EQ(desktop.statusBar.items.size(), 1U);
    EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  };
  program.delegate.applicationDidFinishLaunching();
  EXPECT_TRUE(wasMade);
  EXPECT_GT(desktop.keyboard.registrationCount(), 0U);
}

TEST_F(LaunchTest, KeepsAToolTipDelayThatIsThere) {
  desktop.defaults.setInteger("NSInitialToolTipDelay", 20);
  launch();
  EXPECT_EQ(desktop.defaults.values["NSInitialToolTipDelay"], FakeUserDefaults::Value(std::int64_t{20}));
}

TEST_F(LaunchTest, AnExistingInstallationShowsNoWindowBeforeItIsAskedForOne) {
  launch();
  desktop.time.advance(2);
  EXPECT_EQ(desktop.windows.onboardingWindowsMade, 0);
  EXPECT_EQ(desktop.windows.settingsShown, 0);
  EXPECT_THAT(program.statusItemProblems, ElementsAre(std::nullopt));

  desktop.statusBar.choose(0);
  EXPECT_TRUE(program.delegate.applicationShouldHandleReopen(false));
  EXPECT_EQ(desktop.windows.settingsWindowsMade, 1);
  EXPECT_EQ(desktop.windows.settingsShown, 2);
  EXPECT_FALSE(program.delegate.applicationShouldTerminateAfterLastWindowClosed());
  desktop.statusBar.choose(2);
  EXPECT_EQ(desktop.shell.terminations, 1);
}

TEST_F(LaunchTest, ANewUserIsIntroducedAndOnceThePermissionsAreThereShownTheSettingsOnce) {
  forgetIntroduction();
  desktop.permissions.mayListen = false;
  desktop.statusBar.problem = "there is no tray";
  program.delegate.applicationDidFinishLaunching();
  EXPECT_FALSE(desktop.windows.isOnboardingUp);
  desktop.time.advance(1);
  ASSERT_TRUE(desktop.windows.isOnboardingUp);
  EXPECT_EQ(desktop.windows.settingsShown, 0) << "a hidden status item does not disturb the introduction";
  EXPECT_FALSE(marker(AppLaunchState::kHasSeenPermissionIntro));

  desktop.windows.closeOnboarding();
  desktop.shell.becomeActive();
  EXPECT_TRUE(marker(AppLaunchState::kHasSeenPermissionIntro));
  EXPECT_EQ(desktop.windows.settingsShown, 0);
  desktop.permissions.mayListen = true;
  desktop.shell.becomeActive();
  EXPECT_TRUE(marker(AppLaunchState::kHasAutoOpenedSettings));
  desktop.shell.becomeActive();
  EXPECT_EQ(desktop.windows.settingsShown, 1);
}

TEST_F(LaunchTest, TheIntroductionComesBackWhenAHotkeyNeedsAPermission) {
  desktop.permissions.trusted = false;
  program.permissions.refresh();
  launchWith({menu("tab", {48, carbon::kCommand})});
  EXPECT_TRUE(desktop.windows.isOnboardingUp);
}

TEST_F(LaunchTest, TheIntroductionClosesWhenBothPermissionsAreThere) {
  forgetIntroduction();
  desktop.permissions.trusted = desktop.permissions.mayListen = false;
  program.permissions.refresh();
  useMenus({menu("main", {49, kControlOption})});
  desktop.keyboard.foreignOwners.insert({49, 0x1800});
  launch();
  ASSERT_TRUE(desktop.windows.isOnboardingUp);

  desktop.keyboard.foreignOwners.clear();
  desktop.permissions.trusted = true;
  program.permissions.refresh();
  EXPECT_TRUE(desktop.keyboard.isRegistered(49, 0x1800));
  EXPECT_EQ(desktop.permissions.listenRequests, 1);
  EXPECT_TRUE(desktop.windows.isOnboardingUp);

  desktop.permissions.mayListen = true;
  program.permissions.refresh();
  EXPECT_FALSE(desktop.windows.isOnboardingUp);
  EXPECT_EQ(desktop.shell.activations, 1);
  EXPECT_TRUE(marker(AppLaunchState::kHasSeenPermissionIntro));
  EXPECT_EQ(desktop.windows.settingsShown, 1);
}

TEST_F(LaunchTest, AHiddenStatusItemOpensTheSettingsOneSecondAfterLaunch) {
  desktop.statusBar.problem = "there is no tray";
  launchWith({});
  desktop.time.advance(0.999);
  EXPECT_THAT(desktop.log.lines, IsEmpty());
  desktop.time.advance(0.001);
  EXPECT_TRUE(desktop.log.contains(LogLevel::error, "status item not visible: there is no tray"));
  EXPECT_EQ(desktop.windows.settingsShown, 1);

  desktop.screens.change({});
  desktop.shell.becomeActive();
  desktop.statusBar.change(std::nullopt);
  EXPECT_EQ(program.statusItemProblems.back(), std::nullopt);
  desktop.statusBar.change("the tray is gone");
  EXPECT_EQ(program.statusItemProblems.size(), 5U);
  EXPECT_EQ(desktop.log.lines.size(), 4U);
  EXPECT_EQ(desktop.windows.settingsShown, 1);
}

TEST_F(LaunchTest, GivesEverythingBackWhenItTerminates) {
  PieMenu tapped = menu("tapped", {49, kControlOption});
  tapped.trackpadFingerCount = 3;
  launchWith({tapped});
  program.delegate.applicationWillTerminate();
  EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  EXPECT_TRUE(program.delegate.trackpadGestureMonitor().fingerCounts().empty());
  EXPECT_EQ(program.switcherRestorations, 1);
}

TEST_F(LaunchTest, CallbacksThatOutliveTheDelegateDoNothing) {
  forgetIntroduction();
  {
    AppDelegate shortLived(program.services());
    shortLived.applicationDidFinishLaunching();
    desktop.keyboard.pressAll({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey});
  }
  desktop.time.advance(2);
  desktop.shell.becomeActive();
  desktop.shell.mainMenu.front().action();
  program.notifications.post(ConfigManager::configurationDidChange);
  EXPECT_FALSE(desktop.overlay.holdsKeyboard());
  EXPECT_EQ(desktop.windows.onboardingWindowsMade, 0);
  EXPECT_EQ(desktop.windows.settingsShown, 0);
  EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  EXPECT_EQ(desktop.keyboard.monitorCount(), 0U);
}

}  // namespace
}  // namespace rondora
