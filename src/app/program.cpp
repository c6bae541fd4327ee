#include "app/program.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include "app/action_findings.h"
#include "app/command_findings.h"
#include "app/menu_directory.h"
#include "app/spoken_texts.h"
#include "app/trigger_rules.h"
#include "input/hotkeys/hotkey_display.h"
#include "settings/general/permission_findings.h"
#include "settings/snippet_hint.h"

namespace rondora {

Program::Program(const Platform& platform)
    : platform_(platform),
      keptDocuments_(platform.defaults),
      config_(configServices()),
      edits_(config_, platform.mainQueue),
      localization_(config_.current().language),
      trackpadWish_(passOnTrackpadWish()),
      menuWish_(passOnMenuWish()),
      permissions_(platform.permissionService, platform.mainQueue, platform.shell),
      activationHistory_(platform.workspace),
      runningAppsMenuItems_(platform.workspace, activationHistory_, platform.environment.bundleIdentifier()),
      actions_(actionPorts(), platform.makeSerialQueue(RunningAppFocus::kQueueLabel)),
      actionFailures_(platform.log),
      commands_(commandPorts(), platform.makeSerialQueue(PieSubActionRunner::kQueueLabel)),
      titles_(platform.workspace, activationHistory_, localization_),
      pictures_({platform.pictureDecoder, platform.files, platform.clock, platform.mainQueue}),
      favicons_({platform.network, pictures_, platform.files, platform.clock, platform.mainQueue, platform.log}),
      report_(localization_, platform.modifierNames),
      documentFindings_({config_, keptDocuments_, platform.defaults, platform.workspace, localization_,
                         [this] { return favicons_.problem(); }}),
      welcome_(welcomeServices()),
      pieMenuWindow_(ringPorts(), ringEnvironment()),
      switchboard_(switchboardServices()),
      nativeAppSwitcher_(platform.symbolicHotKeySwitch),
      delegate_(delegateServices()),
      launchAtLogin_(platform.loginItem),
      settingsRequests_(platform.mainQueue) {
  if (platform_.useInterfaceLanguage) {
    interfaceLanguage_ = localization_.currentLanguage().subscribe(platform_.useInterfaceLanguage);
  }
  faviconPrefetch_ = config_.configuration().subscribe(
      [this](const PieConfiguration& configuration) { favicons_.prefetch(configuration); });
  documentActions_ = config_.configuration().subscribe([this](const PieConfiguration& configuration) {
    actionFailures_.retain([&](const MenuAction& action) { return configuration.hasItem(action); });
    commandFailures_.clear();
  });
}

Subscription Program::passOnTrackpadWish() const {
  if (!platform_.wantTrackpads) return {};
  return config_.configuration().subscribe([this](const PieConfiguration& configuration) {
    platform_.wantTrackpads(!configuration.trackpadGestureTargets().empty());
  });
}

Subscription Program::passOnMenuWish() const {
  if (!platform_.wantApplicationMenus) return {};
  return config_.configuration().subscribe([this](const PieConfiguration& configuration) {
    platform_.wantApplicationMenus(hasLiveAppCommandsMenu(configuration));
  });
}

void Program::start() {
  favicons_.onPicture = [this] { iconsChanged(); };
  commands_.resolver.onKnown = [this](const RunningApplication&) { delegate_.commandsKnown(); };
  favicons_.isRingOpen = [this] { return pieMenuWindow_.isVisible(); };
  if (platform_.onInstalledApplicationsChanged) {
    installedApplications_ = platform_.onInstalledApplicationsChanged([this] { iconsChanged(); });
  }
  lockOrSleep_ = platform_.sessionEvents.onLockOrSleep([this] { releaseInput(); });
  delegate_.applicationDidFinishLaunching();
  platform_.instance.serve(sessionRequests());
  if (platform_.warmUp) platform_.mainQueue.async(platform_.warmUp);
  if (const auto front = platform_.workspace.frontmostApplication()) switchboard_.prefetchAppCommands(*front);
}

/// A screen lock needs keyboard and pointer for itself.
void Program::releaseInput() {
  switchboard_.dismiss();
  if (!settings_) return;
  settings_->hotkeys.cancel();
  settings_->item.cancelRecording();
}

Subscription Program::decodeIcon(PictureRequest request, PictureDecoder::Completion completion) {
  return pictures_.decode(std::move(request), [this, completion = std::move(completion)](const PictureResult& result) {
    completion(result);
    iconsChanged();
  });
}

void Program::iconsChanged() {
  pieMenuWindow_.refreshIcons();
  delegate_.iconsChanged();
  iconsDecoded_.send();
}

void Program::end() {
  delegate_.closeSettings();
  edits_.flush();
  favicons_.save();
  delegate_.applicationWillTerminate();
  if (platform_.handOverClipboard) platform_.handOverClipboard();
  platform_.instance.release();
}

ConfigManager::Services Program::configServices() {
  return {.files = platform_.files,
          .clock = platform_.clock,
          .log = platform_.log,
          .random = platform_.random,
          .notifications = notifications_,
          .onKept = [this](const KeptDocument& document) { keptDocuments_.add(document); }};
}

ActionServices::Ports Program::actionPorts() const {
  return {platform_.workspace,     platform_.pasteboard, platform_.permissionService,
          platform_.keyEvents,     platform_.windowList, platform_.frontProcess,
          platform_.accessibility, platform_.spaces,     platform_.symbolicHotKeys,
          platform_.mainQueue,     platform_.clock,      platform_.log,
          platform_.environment};
}

CommandServices::Ports Program::commandPorts() {
  return {
      .workspace = platform_.workspace,
      .screens = platform_.screens,
      .mainQueue = platform_.mainQueue,
      .clock = platform_.clock,
      .permissions = platform_.permissionService,
      .log = platform_.log,
      .accessibility = platform_.commandAccessibility,
      .localization = localization_,
      .keyEquivalent =
          [this](const MenuShortcut& shortcut) { return menuShortcutText(shortcut, platform_.modifierNames); },
      .entries = [this](std::string_view id) { return config_.current().commandEntries(id, platform_.random); },
      .ended = [this](const auto& command, const auto& application,
                      auto problem) { commandEnded(command, application, problem); },
      .focus = [this](const RunningApplication& application) { return actions_.runningAppFocus.focus(application); }};
}

PieMenuWindowController::Ports Program::ringPorts() const {
  return {platform_.overlayPanels, platform_.screens,   platform_.pointer, platform_.haptics,
          platform_.eventMonitors, platform_.mainQueue, platform_.clock,   platform_.announcer};
}

PieMenuWindowController::Environment Program::ringEnvironment() {
  return {.hapticFeedbackEnabled = [this] { return config_.current().hapticFeedbackEnabled; },
          .displayTitle = [this](const PieMenuItem& item) { return titles_.title(item); },
          .isAvailable = [this](const PieMenuItem& item) { return titles_.isAvailable(item); },
          .emptyMenuText = [this] { return std::string(localization_.text(StringKey::ringMenuEmpty)); },
          .spokenItem = [this](const SpokenItem& item) { return spokenItem(localization_, item); }};
}

MenuSwitchboard::Services Program::switchboardServices() {
  return {.mainQueue = platform_.mainQueue,
          .clock = platform_.clock,
          .random = platform_.random,
          .environment = platform_.environment,
          .workspace = platform_.workspace,
          .eventMonitors = platform_.eventMonitors,
          .windows = platform_.windows,
          .config = config_,
          .runningAppsMenuItems = runningAppsMenuItems_,
          .appLauncher = actions_.appLauncher,
          .subActions = platform_.subActions ? *platform_.subActions : commands_.runner,
          .pieMenuWindow = pieMenuWindow_,
          .snippetHint = [this] { return snippetHint(localization_, platform_.pasteKeys); },
          .actionEnded = [this](const auto& item, const Uuid& menu,
                                const auto& failure) { actionEnded(item, menu, failure); },
          .opened = [this] { welcome_.ringOpened(); },
          .tapped =
              [this] {
                welcome_.ringWasTapped();
                delegate_.remindToHold();
              },
          .chosen = [this] { welcome_.itemChosen(); }};
}

AppDelegate::Services Program::delegateServices() {
  return {.mainQueue = platform_.mainQueue,
          .clock = platform_.clock,
          .log = platform_.log,
          .defaults = platform_.defaults,
          .environment = platform_.environment,
          .workspace = platform_.workspace,
          .screens = platform_.screens,
          .hotkeyService = platform_.hotkeyService,
          .eventTaps = platform_.eventTaps,
          .secureInput = platform_.secureInput,
          .eventMonitors = platform_.eventMonitors,
          .multitouch = platform_.multitouch,
          .sessionEvents = platform_.sessionEvents,
          .statusBar = platform_.statusBar,
          .windows = platform_.windows,
          .shell = platform_.shell,
          .permissionService = platform_.permissionService,
          .notifications = notifications_,
          .config = config_,
          .localization = localization_,
          .permissions = permissions_.snapshot(),
          .activationHistory = activationHistory_,
          .switchboard = switchboard_,
          .nativeAppSwitcher = nativeAppSwitcher_,
          .workingHotkeys = [this] { return listOfWorkingHotkeys(); },
          .hotkeysChanged = [this] { welcome_.refresh(); },
          .publishStatusItemProblem = [this](const auto& problem) { statusItemEvaluated(problem); }};
}

std::string Program::listOfWorkingHotkeys() const {
  const HotkeyManager* hotkeys = delegate_.hotkeyManager();
  if (hotkeys == nullptr) return {};
  return workingHotkeys(config_.current().menus, *hotkeys, localization_.language(), platform_.modifierNames);
}

SettingsServices& Program::settings() {
  if (!settings_) settings_.emplace(settingsPorts());
  return *settings_;
}

SettingsServices::Ports Program::settingsPorts() {
  return {
      .session = edits_,
      .config = config_,
      .clock = platform_.clock,
      .haptics = platform_.haptics,
      .pasteboard = platform_.pasteboard,
      .random = platform_.random,
      .localization = localization_,
      .notifications = notifications_,
      .recorder = {platform_.eventMonitors, platform_.recordingKeyboard, platform_.mainQueue},
      .modifierNames = platform_.modifierNames,
      .hotkeys = [this] { return delegate_.hotkeyManager(); },
      .trigger = [this](const PieMenu& menu) { return triggerInWords(menu); },
      .itemTitle = [this](const PieMenuItem& item) { return titles_.title(item); },
      .trackpadNote =
          [this] {
            const bool isMissing = platform_.trackpads.access() == TrackpadAccess::none;
            return isMissing ? std::string(localization_.text(StringKey::menuNoTrackpad)) : "";
          },
      .applicationName = [this](std::string_view id) { return platform_.workspace.applicationName(id); },
      .canDo = [this](MacOSSystemActionKind kind) { return MacOSSystemActionRunner(platform_.workspace).canRun(kind); },
      .snippetHint = [this] { return snippetHint(localization_, platform_.pasteKeys); },
      .ring = [this](const PieMenu& menu) { return previewRing(menu); },
      .run = [this](const PieMenuItem& item, const Uuid& menu) { tryItem(item, menu); },
      .hasProblem =
          [this] { return statusItemProblem_.has_value() || !failures(documentFindings_.findings()).empty(); },
      .kept = keptDocuments_,
      .files = platform_.files,
      .workspace = platform_.workspace,
      .menus = commands_.catalog,
      .keyEquivalent =
          [this](const MenuShortcut& shortcut) { return menuShortcutText(shortcut, platform_.modifierNames); },
      .applications = {platform_.applications, platform_.workspace, platform_.textOrder, localization_,
                       platform_.onInstalledApplicationsChanged},
      .fileChooser = platform_.fileChooser,
      .ownBundleIdentifier = platform_.environment.bundleIdentifier(),
      .trackpads = platform_.trackpads,
      .desktop = platform_.desktop,
      .login = launchAtLogin_,
      .permissions = permissions_,
      .permissionRequests = {platform_.permissionService, platform_.workspace, platform_.mainQueue},
      .showsStatusItem = [this] { return showsStatusItem_; },
      .failures = [this] { return whatFailed(); },
      .pressFinding = [this](const FindingButton& button) { documentFindings_.press(button); }};
}

RingPreview::Ring Program::previewRing(const PieMenu& menu) {
  const bool isOfRunningApps = menu.kind == PieMenuKind::runningApps;
  auto preview =
      pieMenuWindow_.preview(menu, isOfRunningApps ? std::optional(runningAppsMenuItems_.build(menu)) : std::nullopt,
                             std::nullopt, std::numeric_limits<double>::infinity());
  return {std::move(preview.picture), preview.displayed.layout, preview.displayed.items.size()};
}

std::string Program::triggerInWords(const PieMenu& menu) const {
  if (menu.hotkey.isAssigned()) return displayString(menu.hotkey, localization_.language(), platform_.modifierNames);
  return menu.trackpadFingerCount == 0
             ? ""
             : localization_.text(StringKey::fingersCount, std::to_string(menu.trackpadFingerCount));
}

/// A keystroke goes to the application that the user worked with before the settings.
void Program::tryItem(const PieMenuItem& item, const Uuid& menu) {
  std::optional<RunningApplication> target;
  for (const std::string& id : activationHistory_.bundleIdentifiers()) {
    if (id == platform_.environment.bundleIdentifier()) continue;
    const auto running = platform_.workspace.runningApplications(id);
    if (running.empty()) continue;
    target = running.front();
    break;
  }
  switchboard_.run(item, menu, target);
}

void Program::statusItemEvaluated(const std::optional<std::string>& problem) {
  statusItemProblem_ = problem;
  showsStatusItem_ = !problem;
}

/// The first menu that its hotkey opens; null when there is none.
const PieMenu* Program::menuWithHotkey() const {
  const HotkeyManager* manager = delegate_.hotkeyManager();
  return manager == nullptr ? nullptr : firstMenuWithWorkingHotkey(config_.current().menus, *manager);
}

/// The menu that a new user is to meet first, with a hotkey if one has any; null when all are switched off.
const PieMenu* Program::firstMenu() const {
  const auto& menus = config_.current().menus;
  auto found = std::find_if(menus.begin(), menus.end(), [](const PieMenu& menu) { return menu.hasLiveHotkey(); });
  if (found == menus.end()) found = std::find_if(menus.begin(), menus.end(), std::mem_fn(&PieMenu::isEnabled));
  return found == menus.end() ? nullptr : &*found;
}

Welcome::Services Program::welcomeServices() {
  return {.localization = localization_,
          .documentPath = config_.configURL().string(),
          .facts = [this]() -> Welcome::Facts {
            const PieMenu* menu = menuWithHotkey();
            return {
                menu == nullptr ? "" : displayString(menu->hotkey, localization_.language(), platform_.modifierNames),
                menu == firstMenu() && !isWaylandSession(platform_.environment)};
          },
          .openRing =
              [this] {
                if (const PieMenu* menu = firstMenu()) delegate_.trigger(menu->id.string());
              },
          .chooseHotkey =
              [this] {
                if (const PieMenu* menu = firstMenu()) settings().navigation.openMenu(menu->id);
                delegate_.openSettings();
              }};
}

WindowContents Program::windowContents() {
  return {
      .onTextsChanged =
          [this](std::function<void()> observer) {
            return notifications_.addObserver(ConfigManager::kConfigurationDidChange, std::move(observer));
          },
      .settings = [this] { return settings().models(); },
      .onIconsDecoded = [this](std::function<void()> observer) { return iconsDecoded_.subscribe(std::move(observer)); },
      .language = [this] { return localization_.language(); },
      .chooseLanguage =
          [this](AppLanguage language) {
            settings().history.edit([language](PieConfiguration& document) { document.language = language; });
          },
      .quit = [this] { delegate_.quitApp(); },
      .hotkeys = settings().hotkeys.list(),
      .watchFindings =
          [this](FindingsObserver observer) {
            return rondora::watchFindings(
                platform_.mainQueue, [this] { return findings(); }, std::move(observer));
          },
      .watchFailures =
          [this](FindingsObserver observer) {
            return rondora::watchFindings(
                platform_.mainQueue, [this] { return failures(findings()); }, std::move(observer));
          },
      .watchUnsaved =
          [this](FindingsObserver observer) {
            const auto unsaved = [this] {
              auto finding = documentFindings_.notSaved();
              return finding ? SessionFindings{*std::move(finding)} : SessionFindings();
            };
            return rondora::watchFindings(platform_.mainQueue, unsaved, std::move(observer));
          },
      .press = [this](const FindingButton& button) { settings().general.press(button); },
      .released = platform_.returnFreeMemory,
      .welcome = &welcome_};
}

SessionFindings Program::findings() const {
  SessionFindings all = whatFailed();
  const SessionFindings session = report_.findings(sessionFacts(), config_.current(), delegate_.hotkeyManager());
  all.insert(all.end(), session.begin(), session.end());
  return all;
}

SessionFindings Program::whatFailed() const {
  SessionFindings all = documentFindings_.findings();
  for (const SessionFindings& more :
       {actionFindings(actionFailures_, localization_), commandFindings(commandFailures_, localization_)}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

void Program::actionEnded(const PieMenuItem& item, const Uuid& menuId, const std::optional<ActionFailure>& failure) {
  if (!failure) {
    actionFailures_.worked(item.action);
    if (settings_) settings_->actionEnded(item, {});
    return;
  }
  const PieMenu* menu = config_.current().menu(menuId);
  const std::string title = titles_.title(item);
  ActionFailure named = *failure;
  // The identifier of an application of another system tells the user nothing.
  if (named.problem == ActionProblem::notInstalled && titles_.standsForKind(item)) named.detail = title;
  actionFailures_.failed({.action = item.action,
                          .item = title.empty() ? named.detail : title,
                          .menu = menu == nullptr ? "" : menu->name,
                          .failure = std::move(named)});
  // The latest failure is the first finding.
  if (settings_) settings_->actionEnded(item, actionFindings(actionFailures_, localization_).front().statement);
}

void Program::commandEnded(const PieSubAction& command, const RunningApplication& application,
                           std::optional<SubActionProblem> problem) {
  if (!problem) return commandFailures_.worked(command, application);
  commandFailures_.failed({command, application, *problem});
}

SessionFacts Program::sessionFacts() const {
  const bool readsMenus = platform_.applicationsWithoutMenus && hasLiveAppCommandsMenu(config_.current());
  SessionFindings permissions;
  if (platform_.desktop == DesktopKind::macOS) {
    permissions = permissionFindings(permissions_.snapshot().value(),
                                     {.asksUser = platform_.permissionService.asksUser()}, localization_);
  }
  return {.desktop = platform_.desktop,
          .isWayland = isWaylandSession(platform_.environment),
          .showsStatusItem = showsStatusItem_,
          .canPressKeys = platform_.permissionService.isProcessTrusted(),
          .permissions = std::move(permissions),
          .trackpads = platform_.trackpads.access(),
          .applicationsWithoutMenus = readsMenus ? platform_.applicationsWithoutMenus() : std::vector<std::string>()};
}

SessionRequests Program::sessionRequests() {
  return {
      .showSettings = [this] { settingsRequests_.request([this] { delegate_.applicationShouldHandleReopen(false); }); },
      .trigger = [this](std::string_view idOrName) { return delegate_.trigger(idOrName); },
      .listMenus = [this] { return menuListings(); }};
}

std::vector<MenuListing> Program::menuListings() const {
  return listMenus(config_.current().menus, delegate_.hotkeyManager(), localization_.language(),
                   platform_.modifierNames);
}

}  // namespace rondora
