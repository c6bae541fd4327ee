#pragma once

#include <functional>
#include <memory>

#include "base/observable.h"
#include "base/weak_self.h"
#include "permissions/permissions_snapshot.h"
#include "platform/application_shell.h"
#include "platform/main_queue.h"
#include "platform/permission_service.h"
#include "platform/process_environment.h"
#include "platform/user_defaults.h"
#include "platform/windows.h"
#include "storage/app_launch_state.h"
#include "storage/config_manager.h"

namespace rondora {

/// Introduces the program to a new user: the onboarding window until the permissions are granted, then the settings
/// once. Main thread.
class FirstLaunch {
 public:
  /// The references must outlive the object.
  struct Services {
    MainQueue& mainQueue;
    UserDefaults& defaults;
    const ProcessEnvironment& environment;
    const PermissionService& permissionService;
    const CurrentValue<PermissionsSnapshot>& permissions;
    const ConfigManager& config;
    Windows& windows;
    ApplicationShell& shell;
    std::function<void()> openSettings;
  };

  explicit FirstLaunch(const Services& services);

  /// Marks an installation that predates the automatic opening of the settings. Call it before anything else at launch.
  void migrateLaunchState();
  void presentPermissionsIfNeeded();
  void presentSettingsOnceIfPermissionsComplete();
  /// Call it when all permissions are granted: closes an open onboarding window and brings the program forward.
  void finishOnboardingIfUp();
  void remindToHold() const;
  bool hasOnboarding() const { return onboarding_ != nullptr; }
  AppLaunchState& launchState() { return launchState_; }
  bool isOnboardingUp() const { return onboarding_ && onboarding_->isUp(); }

 private:
  void onboardingFinished();

  Services services_;
  AppLaunchState launchState_;
  std::unique_ptr<OnboardingWindow> onboarding_;
  WeakSelf<FirstLaunch> weakSelf_{this};
};

}  // namespace rondora
