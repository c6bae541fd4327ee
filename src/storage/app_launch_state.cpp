#include "storage/app_launch_state.h"

namespace rondora {

void AppLaunchState::applySettingsAutoOpenMigrationForExistingInstallsIfNeeded() {
  if (defaults_.boolean(kAutoOpenMigrationDone)) return;
  defaults_.setBoolean(kAutoOpenMigrationDone, true);
  if (hasSeenPermissionIntro()) markSettingsAutoOpened();
}

void AppLaunchState::setHasShownHiddenStatusItem(bool hasShown) {
  if (hasShownHiddenStatusItem() != hasShown) defaults_.setBoolean(kHasShownHiddenStatusItem, hasShown);
}

bool AppLaunchState::shouldShowPermissionsOnboarding(bool accessibilityGranted, bool needsAccessibility) const {
  if (environment_.variable("RONDORA_FIRST_LAUNCH") == "1") return true;
  if (!hasSeenPermissionIntro()) return true;
  return needsAccessibility && !accessibilityGranted;
}

}  // namespace rondora
