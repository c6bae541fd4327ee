#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/first_launch.h"
#include "app/menu_switchboard.h"
#include "app/request_gate.h"
#include "app/ring_prerenderer.h"
#include "app/status_menu.h"
#include "app/trigger_sources.h"
#include "base/notification_center.h"
#include "base/observable.h"
#include "base/weak_self.h"
#include "input/hotkeys/native_app_switcher.h"
#include "localization/localization_store.h"
#include "permissions/permissions_snapshot.h"
#include "platform/application_shell.h"
#include "platform/clock.h"
#include "platform/event_monitors.h"
#include "platform/event_taps.h"
#include "platform/hotkey_service.h"
#include "platform/instance_channel.h"
#include "platform/log.h"
#include "platform/main_queue.h"
#include "platform/multitouch.h"
#include "platform/permission_service.h"
#include "platform/process_environment.h"
#include "platform/screens.h"
#include "platform/secure_input.h"
#include "platform/session_events.h"
#include "platform/status_item.h"
#include "platform/user_defaults.h"
#include "platform/windows.h"
#include "platform/workspace.h"
#include "running_apps/running_apps_activation_history.h"
#include "storage/config_manager.h"

namespace rondora {

/// Starts the program in order, reacts to changes around it and shuts it down. Main thread.
class AppDelegate {
 public:
  /// The references must outlive the delegate.
  struct Services {
    MainQueue& mainQueue;
    const Clock& clock;
    Log& log;
    UserDefaults& defaults;
    const ProcessEnvironment& environment;
    Workspace& workspace;
    Screens& screens;
    HotkeyService& hotkeyService;
    EventTaps& eventTaps;
    SecureInput& secureInput;
    const EventMonitors& eventMonitors;
    MultitouchDevices& multitouch;
    SessionEvents& sessionEvents;
    StatusBar& statusBar;
    Windows& windows;
    ApplicationShell& shell;
    PermissionService& permissionService;

    NotificationCenter& notifications;
    const ConfigManager& config;
    LocalizationStore& localization;
    const CurrentValue<PermissionsSnapshot>& permissions;
    RunningAppsActivationHistory& activationHistory;
    MenuSwitchboard& switchboard;
    NativeAppSwitcher& nativeAppSwitcher;

    /// The menus that their hotkeys open, a line for each.
    std::function<std::string()> workingHotkeys;
    /// Called when hotkeys have been registered.
    std::function<void()> hotkeysChanged;
    /// Called with the reason why the user cannot see the status item, nothing when it is visible, once one of them is
    /// known and at each evaluation after that.
    std::function<void(const std::optional<std::string>&)> publishStatusItemProblem;
  };

  explicit AppDelegate(const Services& services);
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;

  void applicationDidFinishLaunching();
  void applicationWillTerminate();
  bool applicationShouldTerminateAfterLastWindowClosed() const { return false; }
  /// The user started the program again while it was running.
  bool applicationShouldHandleReopen(bool hasVisibleWindows);
  void openSettings();
  /// Also enters what a field of theirs holds half typed.
  void closeSettings();
  void quitApp();
  /// Triggers a menu for another program, like a hotkey that is neither held nor repeated.
  TriggerReply trigger(std::string_view idOrName);
  /// The user tapped a hotkey that is to be held.
  void remindToHold() const;
  /// Invalidates pre-rendered rings: a favicon arrived, or applications were installed or removed.
  void iconsChanged();
  /// The commands of an application became known or changed.
  void commandsKnown();

  TriggerSources& triggers() { return triggers_; }
  /// Null before the launch.
  const HotkeyManager* hotkeyManager() const { return triggers_.hotkeyManager(); }

 private:
  enum class HiddenStatusItem { openSettings, onlyReport };

  FirstLaunch::Services firstLaunchServices() const;
  RingPrerenderer::Services ringPrerendererServices() const;
  void presentFirstWindows();
  void subscribeLanguage();
  void setupTriggers();
  void observeChanges();
  void configurationChanged();
  void subscribePermissions();
  void permissionsChanged(const PermissionsSnapshot& snapshot);
  void relaunchIfTapIsDeaf();
  void evaluateStatusItemVisibility(HiddenStatusItem reaction);
  void openSettingsForHiddenStatusItem();

  Services services_;
  RequestGate menuRequests_;
  TriggerSources triggers_;
  std::unique_ptr<StatusMenu> statusMenu_;
  std::unique_ptr<FirstLaunch> firstLaunch_;
  std::unique_ptr<RingPrerenderer> ringPrerenderer_;
  std::unique_ptr<SettingsWindow> settingsWindow_;
  /// From the check after the launch on, which reports what was noticed before it.
  bool hasStatusItemSettled_ = false;
  /// From the check after the launch until its answer is known.
  bool opensSettingsIfHidden_ = false;
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
