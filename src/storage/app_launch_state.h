#pragma once

#include <string_view>

#include "platform/process_environment.h"
#include "platform/user_defaults.h"

namespace rondora {

/// What earlier launches have shown the user. Main thread.
class AppLaunchState {
 public:
  static constexpr std::string_view kHasSeenPermissionIntro = "pie.hasSeenPermissionIntro";
  static constexpr std::string_view kHasAutoOpenedSettings = "pie.hasAutoOpenedSettingsAfterPermissions";
  static constexpr std::string_view kHasShownHiddenStatusItem = "pie.hasAutoOpenedSettingsForHiddenStatusItem";
  static constexpr std::string_view kAutoOpenMigrationDone = "pie.settingsAutoOpenAfterPermissionsMigrationDone";

  AppLaunchState(UserDefaults& defaults, const ProcessEnvironment& environment)
      : defaults_(defaults), environment_(environment) {}

  bool hasSeenPermissionIntro() const { return defaults_.boolean(kHasSeenPermissionIntro); }
  void markPermissionIntroSeen() { defaults_.setBoolean(kHasSeenPermissionIntro, true); }
  bool hasAutoOpenedSettingsAfterPermissions() const { return defaults_.boolean(kHasAutoOpenedSettings); }
  void markSettingsAutoOpened() { defaults_.setBoolean(kHasAutoOpenedSettings, true); }
  /// Whether the settings have told the user of a hidden status item since it was visible last.
  bool hasShownHiddenStatusItem() const { return defaults_.boolean(kHasShownHiddenStatusItem); }
  /// Writes only a change.
  void setHasShownHiddenStatusItem(bool hasShown);

  /// Does not open the settings automatically for users of an earlier build who have seen the introduction.
  void applySettingsAutoOpenMigrationForExistingInstallsIfNeeded();

  bool shouldShowPermissionsOnboarding(bool accessibilityGranted, bool needsAccessibility) const;

 private:
  UserDefaults& defaults_;
  const ProcessEnvironment& environment_;
};

}  // namespace rondora
