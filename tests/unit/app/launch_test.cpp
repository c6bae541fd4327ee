#include <gmock/gmock.h>

#include "unit/app/program.h"

namespace rondora {
namespace {

using LaunchTest = ProgramTest;

TEST_F(LaunchTest, ComesUpInOrder) {
  bool wasMade = false;
  desktop.statusBar.whenMade = [&] {
    wasMade = true;
    EXPECT_EQ(desktop.defaults.values["NSInitialToolTipDelay"], FakeUserDefaults::Value(std::int64_t{500}));
    EXPECT_TRUE(desktop.defaults.boolean(AppLaunchState::kAutoOpenMigrationDone));
    EXPECT_THAT(program.activationHistory().bundleIdentifiers(), testing::ElementsAre("org.example.editor"));
    EXPECT_EQ(desktop.shell.mainMenu.size(), 3U);
    EXPECT_EQ(desktop.shell.activationPolicy, ActivationPolicy::accessory);
    EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  };
  program.start();
  EXPECT_TRUE(wasMade);
  EXPECT_GT(desktop.keyboard.registrationCount(), 0U);
}

TEST_F(LaunchTest, KeepsAToolTipDelayThatIsThere) {
  desktop.defaults.setInteger("NSInitialToolTipDelay", 20);
  launch();
  EXPECT_EQ(desktop.defaults.values["NSInitialToolTipDelay"], FakeUserDefaults::Value(std::int64_t{20}));
}

TEST_F(LaunchTest, CallbacksThatOutliveTheProgramDoNothing) {
  desktop.defaults.values.clear();
  {
    Program shortLived(platform());
    shortLived.start();
    desktop.keyboard.pressAll({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey});
  }
  desktop.time.advance(2);
  desktop.shell.becomeActive();
  desktop.shell.mainMenu.front().action();
  EXPECT_FALSE(desktop.overlay.holdsKeyboard());
  EXPECT_EQ(desktop.windows.onboardingWindowsMade, 0);
  EXPECT_EQ(desktop.windows.settingsShown, 0);
  EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  EXPECT_EQ(desktop.keyboard.monitorCount(), 0U);
}

TEST_F(LaunchTest, NewInstallStaysNewAfterTheIntroduction) {
  desktop.defaults.values.clear();
  AppLaunchState state(desktop.defaults, desktop.environment);
  state.applySettingsAutoOpenMigrationForExistingInstallsIfNeeded();
  EXPECT_TRUE(desktop.defaults.boolean("pie.settingsAutoOpenAfterPermissionsMigrationDone"));
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(true, false));
  state.markPermissionIntroSeen();
  state.applySettingsAutoOpenMigrationForExistingInstallsIfNeeded();
  EXPECT_FALSE(desktop.defaults.hasValue("pie.hasAutoOpenedSettingsAfterPermissions"));
  EXPECT_FALSE(state.shouldShowPermissionsOnboarding(false, false));
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(false, true)) << "accessibility is missing";
  for (const std::string value : {"", "11", "1"}) {
    desktop.environment.variables["RONDORA_FIRST_LAUNCH"] = value;
    EXPECT_EQ(state.shouldShowPermissionsOnboarding(true, true), value == "1") << value;
  }
}

}  // namespace
}  // namespace rondora
