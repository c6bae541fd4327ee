#include "app/app_delegate.h"

#include <string>
#include <utility>

#include "app/menu_directory.h"
#include "permissions/app_relauncher.h"

namespace rondora {
namespace {

constexpr std::string_view kInitialToolTipDelay = "NSInitialToolTipDelay";
constexpr std::int64_t kToolTipDelay = 500;      // milliseconds
constexpr double kStatusItemSettlingTime = 1.0;  // seconds

template <class T>
std::function<void(const T&)> droppingFirst(std::function<void(const T&)> slot) {
  return [slot = std::move(slot), isFirst = true](const T& value) mutable {
    if (!std::exchange(isFirst, false)) slot(value);
  };
}

}  // namespace

AppDelegate::AppDelegate(const Services& services)
    : services_(services),
      menuRequests_(services.mainQueue),
      triggers_({.mainQueue = services.mainQueue,
                 .clock = services.clock,
                 .log = services.log,
                 .hotkeyService = services.hotkeyService,
                 .eventTaps = services.eventTaps,
                 .secureInput = services.secureInput,
                 .eventMonitors = services.eventMonitors,
                 .nativeAppSwitcher = services.nativeAppSwitcher,
                 .multitouch = services.multitouch,
                 .sessionEvents = services.sessionEvents,
                 .config = services.config,
                 .switchboard = services.switchboard}) {
  statusMenu_ = std::make_unique<StatusMenu>(
      StatusMenu::Services{.mainQueue = services.mainQueue,
                           .shell = services.shell,
                           .statusBar = services.statusBar,
                           .localization = services.localization,
                           .openSettings = weakSelf_.bind([](AppDelegate& self) { self.openSettings(); }),
                           .quitApp = weakSelf_.bind([](AppDelegate& self) { self.quitApp(); })});
  firstLaunch_ = std::make_unique<FirstLaunch>(firstLaunchServices());
}

FirstLaunch::Services AppDelegate::firstLaunchServices() const {
  return {.mainQueue = services_.mainQueue,
          .defaults = services_.defaults,
          .environment = services_.environment,
          .permissionService = services_.permissionService,
          .permissions = services_.permissions,
          .config = services_.config,
          .windows = services_.windows,
          .shell = services_.shell,
          .openSettings = weakSelf_.bind([](AppDelegate& self) { self.openSettings(); })};
}

RingPrerenderer::Services AppDelegate::ringPrerendererServices() const {
  MenuSwitchboard& switchboard = services_.switchboard;
  return {.config = services_.config,
          .workspace = services_.workspace,
          .mainQueue = services_.mainQueue,
          .prerender = [&switchboard](const PieMenu& menu) { switchboard.prerender(menu); },
          .isRingOpen = [&switchboard] { return switchboard.isMenuVisible(); }};
}

void AppDelegate::applicationDidFinishLaunching() {
  if (!services_.defaults.hasValue(kInitialToolTipDelay)) {
    services_.defaults.setInteger(kInitialToolTipDelay, kToolTipDelay);
  }
  firstLaunch_->migrateLaunchState();
  services_.activationHistory.startObservingIfNeeded();
  subscribeLanguage();
  statusMenu_->setupMainMenu();
  services_.shell.setActivationPolicy(ActivationPolicy::accessory);
  services_.shell.setShouldTerminateAfterLastWindowClosed(
      weakSelf_.bind([](AppDelegate& self) { return self.applicationShouldTerminateAfterLastWindowClosed(); }));
  statusMenu_->setupStatusBar();
  triggers_.onHotkeysChanged = weakSelf_.bind([](AppDelegate& self) {
    self.statusMenu_->showHotkeys(self.services_.workingHotkeys());
    self.services_.hotkeysChanged();
  });
  setupTriggers();
  observeChanges();
  services_.mainQueue.async(weakSelf_.bind([](AppDelegate& self) { self.presentFirstWindows(); }));
  services_.mainQueue.after(kStatusItemSettlingTime, weakSelf_.bind([](AppDelegate& self) {
    self.hasStatusItemSettled_ = true;
    self.evaluateStatusItemVisibility(HiddenStatusItem::openSettings);
  }));
  ringPrerenderer_ = std::make_unique<RingPrerenderer>(ringPrerendererServices());
}

void AppDelegate::presentFirstWindows() {
  firstLaunch_->presentPermissionsIfNeeded();
  if (services_.config.hasReplacedUnreadable()) openSettings();
}

void AppDelegate::closeSettings() {
  if (settingsWindow_) settingsWindow_->close();
}

void AppDelegate::applicationWillTerminate() {
  ringPrerenderer_.reset();
  triggers_.tearDown();
  services_.nativeAppSwitcher.restore();
}

bool AppDelegate::applicationShouldHandleReopen(bool /*hasVisibleWindows*/) {
  openSettings();
  return true;
}

void AppDelegate::openSettings() {
  triggers_.retryRefusedHotkeys();
  if (!settingsWindow_) settingsWindow_ = services_.windows.makeSettingsWindow();
  if (settingsWindow_) settingsWindow_->show();
  if (statusMenu_->visibilityProblem()) firstLaunch_->launchState().setHasShownHiddenStatusItem(true);
}

void AppDelegate::quitApp() { services_.shell.terminate(); }

TriggerReply AppDelegate::trigger(std::string_view idOrName) {
  const auto [reply, menu] = menuToTrigger(services_.config.current().menus, idOrName);
  if (reply != TriggerReply::opens) {
    // Any program can send this text: the log does not repeat it.
    services_.log.error("trigger skipped: " + std::string(explain(reply)));
    return reply;
  }
  menuRequests_.request([this, id = menu->id] { services_.switchboard.handleRequest(id); });
  return reply;
}

void AppDelegate::remindToHold() const {
  if (firstLaunch_) firstLaunch_->remindToHold();
}

void AppDelegate::iconsChanged() {
  if (ringPrerenderer_) ringPrerenderer_->iconsChanged();
}

void AppDelegate::commandsKnown() {
  if (ringPrerenderer_) ringPrerenderer_->commandsKnown();
}

void AppDelegate::subscribeLanguage() {
  auto languageChanged = removingDuplicates<AppLanguage>(weakSelf_.bind(
      [](AppDelegate& self, AppLanguage language) { self.services_.localization.setLanguage(language); }));
  languageSubscription_ = services_.config.configuration().subscribe(
      [languageChanged = std::move(languageChanged)](const PieConfiguration& configuration) {
        languageChanged(configuration.language);
      });
}

void AppDelegate::observeChanges() {
  configurationObserver_ = services_.notifications.addObserver(
      ConfigManager::kConfigurationDidChange, weakSelf_.bind([](AppDelegate& self) { self.configurationChanged(); }));
  modifiersObserver_ =
      services_.hotkeyService.onModifiersMoved(weakSelf_.bind([](AppDelegate& self) { self.setupTriggers(); }));
  didBecomeActiveObserver_ = services_.shell.onDidBecomeActive(weakSelf_.bind([](AppDelegate& self) {
    self.firstLaunch_->presentSettingsOnceIfPermissionsComplete();
    self.evaluateStatusItemVisibility(HiddenStatusItem::onlyReport);
  }));
  subscribePermissions();
  appActivationObserver_ = services_.workspace.onDidActivateApplication(
      weakSelf_.bind([](AppDelegate& self, const RunningApplication& application) {
        self.triggers_.retryRefusedHotkeys();
        self.services_.switchboard.prefetchAppCommands(application);
      }));
  const auto reportVisibility =
      weakSelf_.bind([](AppDelegate& self) { self.evaluateStatusItemVisibility(HiddenStatusItem::onlyReport); });
  screenParametersObserver_ = services_.screens.onParametersChanged(reportVisibility);
  statusItemObserver_ = statusMenu_->onVisibilityChanged(reportVisibility);
}

void AppDelegate::configurationChanged() {
  statusMenu_->refreshLocalizedTitles();
  setupTriggers();
}

void AppDelegate::setupTriggers() {
  triggers_.setUp();
  services_.switchboard.dismissRunningAppsMenuIfDisabled();
}

void AppDelegate::subscribePermissions() {
  permissionsSubscription_ = services_.permissions.subscribe(
      removingDuplicates<PermissionsSnapshot>(droppingFirst<PermissionsSnapshot>(weakSelf_.bind(
          [](AppDelegate& self, const PermissionsSnapshot& snapshot) { self.permissionsChanged(snapshot); }))));
}

void AppDelegate::permissionsChanged(const PermissionsSnapshot& snapshot) {
  setupTriggers();
  if (!snapshot.accessibilityTrusted) return;
  if (snapshot.inputMonitoringGranted) {
    firstLaunch_->finishOnboardingIfUp();
    relaunchIfTapIsDeaf();
  } else if (firstLaunch_->hasOnboarding() && !services_.permissionService.preflightListenEventAccess()) {
    services_.permissionService.requestListenEventAccess();
  }
}

void AppDelegate::relaunchIfTapIsDeaf() {
  const HotkeyHIDTap* tap = hotkeyManager()->hidTap();
  if (tap == nullptr || !tap->hasPort() || tap->deliversKeyEvents()) return;
  // First: what this instance gave back later, it would take from the new one.
  triggers_.tearDown();
  AppRelauncher(services_.shell, services_.mainQueue).relaunch();
}

void AppDelegate::evaluateStatusItemVisibility(HiddenStatusItem reaction) {
  if (reaction == HiddenStatusItem::onlyReport && !hasStatusItemSettled_) return;
  if (reaction == HiddenStatusItem::openSettings) opensSettingsIfHidden_ = true;
  if (!statusMenu_->knowsVisibility()) return;
  const bool opensSettings = std::exchange(opensSettingsIfHidden_, false);
  const auto problem = statusMenu_->visibilityProblem();
  services_.publishStatusItemProblem(problem);
  if (!problem) return firstLaunch_->launchState().setHasShownHiddenStatusItem(false);
  services_.log.error("status item not visible: " + *problem);
  if (opensSettings && !firstLaunch_->isOnboardingUp()) openSettingsForHiddenStatusItem();
}

/// Once, not at each login of a desktop without a tray; a full menu bar may have room at the next. Settings that the
/// user has seen since the launch count.
void AppDelegate::openSettingsForHiddenStatusItem() {
  AppLaunchState& state = firstLaunch_->launchState();
  if (settingsWindow_) return state.setHasShownHiddenStatusItem(true);
  if (!state.hasShownHiddenStatusItem() || statusMenu_->hasNoRoom()) openSettings();
}

}  // namespace rondora
