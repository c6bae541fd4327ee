#include "app/first_launch.h"

#include <utility>

#include "input/hotkeys/hotkey_hid_tap.h"

namespace rondora {

FirstLaunch::FirstLaunch(const Services& services)
    : services_(services), launchState_(services.defaults, services.environment) {}

void FirstLaunch::migrateLaunchState() { launchState_.applySettingsAutoOpenMigrationForExistingInstallsIfNeeded(); }

void FirstLaunch::presentPermissionsIfNeeded() {
  const bool needsAccessibility = HotkeyHIDTap::requiresAccessibility(services_.config.current().menus);
  const bool accessibilityGranted = services_.permissions.value().allGranted();
  if (!launchState_.shouldShowPermissionsOnboarding(accessibilityGranted, needsAccessibility)) {
    return presentSettingsOnceIfPermissionsComplete();
  }
  onboarding_ = services_.windows.makeOnboardingWindow();
  if (!onboarding_) return;
  onboarding_->present(weakSelf_.bind([](FirstLaunch& self) { self.onboardingFinished(); }));
}

void FirstLaunch::onboardingFinished() {
  launchState_.markPermissionIntroSeen();
  // The window itself is calling: destroy it on a later turn.
  services_.mainQueue.async([window = std::shared_ptr(std::move(onboarding_))] {});
  presentSettingsOnceIfPermissionsComplete();
}

void FirstLaunch::finishOnboardingIfUp() {
  if (!isOnboardingUp()) return;
  services_.shell.activateIgnoringOtherApps();
  onboarding_->close();
}

void FirstLaunch::remindToHold() const {
  if (isOnboardingUp()) onboarding_->remindToHold();
}

void FirstLaunch::presentSettingsOnceIfPermissionsComplete() {
  if (launchState_.hasAutoOpenedSettingsAfterPermissions() || !launchState_.hasSeenPermissionIntro()) return;
  if (!PermissionsSnapshot::read(services_.permissionService).allGranted()) return;
  launchState_.markSettingsAutoOpened();
  services_.openSettings();
}

}  // namespace rondora
