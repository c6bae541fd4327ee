#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string_view>

#include "app/app_services.h"
#include "app/menu_switchboard.h"
#include "app/ring_warmer.h"
#include "app/status_menu.h"
#include "base/observable.h"
#include "base/weak_self.h"
#include "input/gestures/trackpad_gesture_monitor.h"
#include "input/hotkeys/grabbed_key_router.h"
#include "input/hotkeys/hotkey_manager.h"
#include "storage/app_launch_state.h"

namespace rondora {

/// The root of the running program: brings it up in order, owns its long-lived parts and reacts to what changes around
/// them. Main thread.
class AppDelegate {
 public:
  using Services = AppServices;

  explicit AppDelegate(const Services& services);
  ~AppDelegate();
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;

  void applicationDidFinishLaunching();
  void applicationWillTerminate();
  bool applicationShouldTerminateAfterLastWindowClosed() const { return false; }
  /// The program was started once more while it runs.
  bool applicationShouldHandleReopen(bool hasVisibleWindows);
  void openSettings();
  void quitApp();
  /// Another program asks for a menu: it opens (or closes what is open) as by a hotkey that can neither be held nor
  /// repeated. False when no menu has this id.
  bool trigger(std::string_view menuId);
  /// Items may look different from when rings were prepared: a picture came, or applications changed.
  void iconsChanged();

  TrackpadGestureMonitor& trackpadGestureMonitor() { return trackpadGestureMonitor_; }
  /// Null before the launch.
  const HotkeyManager* hotkeyManager() const { return hotkeyManager_.get(); }

 private:
  enum class HiddenStatusItem { openSettings, onlyReport };

  void subscribeLanguage();
  void setupHotkeys();
  void makeHotkeyManager();
  /// Wraps a trigger so that it is handled on a later turn of the main queue, whatever thread it comes from.
  std::function<void(HotkeyManager::MenuIndices)> onMainQueue(
      void (MenuSwitchboard::*handle)(const MenuSwitchboard::Candidates&)) const;
  void setupTrackpadGesture(const PieConfiguration& configuration);
  void observeChanges();
  void configurationChanged();
  void subscribePermissions();
  void permissionsChanged(const PermissionsSnapshot& snapshot);
  void finishOnboardingIfUp();
  void relaunchIfTapIsDeaf();
  void evaluateStatusItemVisibility(HiddenStatusItem reaction);
  bool isOnboardingUp() const;
  void presentFirstLaunchPermissionsIfNeeded();
  void onboardingFinished();
  void presentSettingsOnceIfFirstLaunchPermissionsComplete();

  Services services_;
  AppLaunchState launchState_;
  std::unique_ptr<StatusMenu> statusMenu_;
  TrackpadGestureMonitor trackpadGestureMonitor_;
  std::set<std::int64_t> activeTrackpadFingerCounts_;
  std::unique_ptr<MenuSwitchboard> switchboard_;
  std::unique_ptr<RingWarmer> ringWarmer_;
  std::unique_ptr<HotkeyManager> hotkeyManager_;
  std::unique_ptr<GrabbedKeyRouter> grabbedKeyRouter_;
  Subscription grabbedKeyMonitor_;
  std::unique_ptr<SettingsWindow> settingsWindow_;
  std::unique_ptr<OnboardingWindow> permissionsOnboardingController_;
  Subscription appActivationObserver_;
  Subscription configurationObserver_;
  Subscription modifiersObserver_;
  Subscription didBecomeActiveObserver_;
  Subscription screenParametersObserver_;
  Subscription statusItemObserver_;
  Subscription languageSubscription_;
  Subscription permissionsSubscription_;
  WeakSelf<AppDelegate> weakSelf_{this};
};

}  // namespace rondora
