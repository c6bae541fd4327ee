#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "actions/app_launcher.h"
#include "base/notification_center.h"
#include "base/observable.h"
#include "commands/sub_actions.h"
#include "localization/localization_store.h"
#include "permissions/permissions_snapshot.h"
#include "pie/controller/pie_menu_window_controller.h"
#include "platform/application_shell.h"
#include "platform/event_monitors.h"
#include "platform/hotkey_service.h"
#include "platform/log.h"
#include "platform/main_queue.h"
#include "platform/permission_service.h"
#include "platform/process_environment.h"
#include "platform/random_source.h"
#include "platform/screens.h"
#include "platform/status_item.h"
#include "platform/user_defaults.h"
#include "platform/windows.h"
#include "platform/workspace.h"
#include "running_apps/running_apps_activation_history.h"
#include "running_apps/running_apps_menu_items.h"
#include "storage/config_manager.h"

namespace rondora {

/// What the delegate works with; all of it outlives the delegate.
struct AppServices {
  MainQueue& mainQueue;
  Log& log;
  RandomSource& random;
  UserDefaults& defaults;
  ProcessEnvironment& environment;
  Workspace& workspace;
  Screens& screens;
  HotkeyService& hotkeyService;
  EventMonitors& eventMonitors;
  StatusBar& statusBar;
  Windows& windows;
  ApplicationShell& shell;
  PermissionService& permissionService;

  NotificationCenter& notifications;
  ConfigManager& configManager;
  LocalizationStore& localization;
  CurrentValue<PermissionsSnapshot>& permissions;
  RunningAppsActivationHistory& activationHistory;
  RunningAppsMenuItems& runningAppsMenuItems;
  AppLauncher& appLauncher;
  SubActions& subActions;

  std::function<std::unique_ptr<PieMenuWindowController>()> makePieMenuWindow;
  /// Gives the system's application switcher its keys back; may be empty.
  std::function<void()> restoreNativeAppSwitcher;
  /// Learns why the status item cannot be seen, or that it can; may be empty.
  std::function<void(const std::optional<std::string>&)> publishStatusItemProblem;
};

}  // namespace rondora
