#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "actions/action_failures.h"
#include "app/action_services.h"
#include "app/app_delegate.h"
#include "app/command_services.h"
#include "app/item_titles.h"
#include "app/menu_switchboard.h"
#include "app/platform.h"
#include "app/session_report.h"
#include "app/settings_services.h"
#include "base/notification_center.h"
#include "icons/favicons.h"
#include "icons/picture_quarantine.h"
#include "input/hotkeys/native_app_switcher.h"
#include "localization/localization_store.h"
#include "permissions/launch_at_login_service.h"
#include "permissions/permissions_monitor.h"
#include "running_apps/running_apps_activation_history.h"
#include "running_apps/running_apps_menu_items.h"
#include "settings/document_findings.h"
#include "settings/onboarding/welcome.h"
#include "settings/window_contents.h"
#include "storage/config_manager.h"
#include "storage/edit_session.h"
#include "storage/kept_documents.h"

namespace rondora {

/// The whole program on any platform: makes the objects of the core and holds the rules that connect them. Creating it
/// reads and repairs the document. Main thread.
class Program {
 public:
  explicit Program(const Platform& platform);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void start();
  /// Saves pending edits and releases what the program holds of the desktop and the session. Call it once, at the end.
  void end();

  /// For the shell's windows; callable after construction, valid as long as the program.
  WindowContents windowContents();
  /// For the rasterizer: the file with the picture of a web site; nothing when there is none.
  std::optional<std::filesystem::path> sitePicture(std::string_view site) const { return favicons_.picture(site); }
  /// For the rasterizer: decodes the picture of an icon. When it has arrived, an open ring shows it and the
  /// others are pre-rendered again.
  [[nodiscard]] Subscription decodeIcon(PictureRequest request, PictureDecoder::Completion completion);

  AppDelegate& delegate() { return delegate_; }
  MenuSwitchboard& switchboard() { return switchboard_; }
  PieMenuWindowController& pieMenuWindow() { return pieMenuWindow_; }
  ConfigManager& config() { return config_; }
  EditSession& edits() { return edits_; }
  const LocalizationStore& localization() const { return localization_; }
  PermissionsMonitor& permissions() { return permissions_; }
  const RunningAppsActivationHistory& activationHistory() const { return activationHistory_; }
  AppMenuCatalog& appMenuCatalog() { return commands_.catalog; }
  const std::optional<std::string>& statusItemProblem() const { return statusItemProblem_; }

 private:
  Subscription passOnTrackpadWish() const;
  Subscription passOnMenuWish() const;
  ActionServices::Ports actionPorts() const;
  CommandServices::Ports commandPorts();
  PieMenuWindowController::Ports ringPorts() const;
  PieMenuWindowController::Environment ringEnvironment();
  MenuSwitchboard::Services switchboardServices();
  AppDelegate::Services delegateServices();
  SettingsServices& settings();
  SettingsServices::Ports settingsPorts();
  RingPreview::Ring previewRing(const PieMenu& menu);
  std::string triggerInWords(const PieMenu& menu) const;
  void tryItem(const PieMenuItem& item, const Uuid& menu);

  void releaseInput();
  void iconsChanged();
  std::string listOfWorkingHotkeys() const;
  void statusItemEvaluated(const std::optional<std::string>& problem);
  ConfigManager::Services configServices();
  Welcome::Services welcomeServices();
  const PieMenu* menuWithHotkey() const;
  const PieMenu* firstMenu() const;
  SessionFacts sessionFacts() const;
  SessionFindings findings() const;
  SessionFindings whatFailed() const;
  void actionEnded(const PieMenuItem& item, const Uuid& menuId, const std::optional<ActionFailure>& failure);
  void commandEnded(const PieSubAction& command, const RunningApplication& application,
                    std::optional<SubActionProblem> problem);
  SessionRequests sessionRequests();
  std::vector<MenuListing> menuListings() const;

  Platform platform_;
  NotificationCenter notifications_;
  KeptDocuments keptDocuments_;
  ConfigManager config_;
  EditSession edits_;
  LocalizationStore localization_;
  Subscription interfaceLanguage_;
  Subscription trackpadWish_;
  Subscription menuWish_;
  PermissionsMonitor permissions_;
  RunningAppsActivationHistory activationHistory_;
  RunningAppsMenuItems runningAppsMenuItems_;
  ActionServices actions_;
  ActionFailures actionFailures_;
  CommandServices commands_;
  SubActionFailures commandFailures_;
  Subscription documentActions_;
  ItemTitles titles_;
  PictureQuarantine pictures_;
  Favicons favicons_;
  Subscription faviconPrefetch_;
  SessionReport report_;
  DocumentFindings documentFindings_;
  Welcome welcome_;
  std::optional<std::string> statusItemProblem_;
  /// Nothing while it is not known.
  std::optional<bool> showsStatusItem_;
  PieMenuWindowController pieMenuWindow_;
  MenuSwitchboard switchboard_;
  NativeAppSwitcher nativeAppSwitcher_;
  /// Nothing before a window needs it.
  std::optional<SettingsServices> settings_;
  /// Owns the windows.
  AppDelegate delegate_;
  LaunchAtLoginService launchAtLogin_;
  RequestGate settingsRequests_;
  Signal<> iconsDecoded_;
  Subscription installedApplications_;
  Subscription lockOrSleep_;
};

}  // namespace rondora
