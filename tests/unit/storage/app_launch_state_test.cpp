#include "storage/app_launch_state.h"

#include <gmock/gmock.h>

#include "doubles/fake_session.h"
#include "doubles/fake_user_defaults.h"

namespace rondora {
namespace {

class AppLaunchStateTest : public testing::Test {
 protected:
  FakeUserDefaults defaults;
  FakeProcessEnvironment environment;
  AppLaunchState state{defaults, environment};
};

TEST_F(AppLaunchStateTest, ANewInstallIsEvenAfterItHasSeenTheIntroduction) {
  state.applySettingsAutoOpenMigrationForExistingInstallsIfNeeded();
  EXPECT_TRUE(defaults.boolean("pie.settingsAutoOpenAfterPermissionsMigrationDone"));
  state.markPermissionIntroSeen();
  state.applySettingsAutoOpenMigrationForExistingInstallsIfNeeded();
  EXPECT_FALSE(defaults.hasValue("pie.hasAutoOpenedSettingsAfterPermissions"));
}

TEST_F(AppLaunchStateTest, OnboardingIsShownOnceAndWhenAccessibilityIsMissed) {
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(true, false));
  state.markPermissionIntroSeen();
  EXPECT_FALSE(state.shouldShowPermissionsOnboarding(true, true));
  EXPECT_FALSE(state.shouldShowPermissionsOnboarding(false, false));
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(false, true));
}

TEST_F(AppLaunchStateTest, TheEnvironmentCanAskForOnboardingAtEveryLaunch) {
  state.markPermissionIntroSeen();
  for (const std::string value : {"", "0", "true", "11"}) {
    environment.variables["RONDORA_FIRST_LAUNCH"] = value;
    EXPECT_FALSE(state.shouldShowPermissionsOnboarding(true, true)) << value;
  }
  environment.variables["RONDORA_FIRST_LAUNCH"] = "1";
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(true, true));
}

}  // namespace
}  // namespace rondora
