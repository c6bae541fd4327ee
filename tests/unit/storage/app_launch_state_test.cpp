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

TEST_F(AppLaunchStateTest, OnboardingIsShownOnceAndWhereAccessibilityIsMissedOrTheEnvironmentAsks) {
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(true, false));
  state.markPermissionIntroSeen();
  EXPECT_FALSE(state.shouldShowPermissionsOnboarding(true, true));
  EXPECT_FALSE(state.shouldShowPermissionsOnboarding(false, false));
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(false, true));
  for (const std::string value : {"", "11", "1"}) {
    environment.variables["RONDORA_FIRST_LAUNCH"] = value;
    EXPECT_EQ(state.shouldShowPermissionsOnboarding(true, true), value == "1") << value;
  }
}

}  // namespace
}  // namespace rondora
