#include "app/app_delegate.h"

#include <string>
#include <utility>

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
    : services_(services), launchState_(services.defaults, services.environment) {
  statusMenu_ =
      std::make_unique<StatusMenu>(services_.shell, services_.statusBar, services_.localization,
                                   StatusMenu::Actions{weakSelf_.bind([](AppDelegate& self) { self.openSettings(); }),
                                                       weakSelf_.bind([](AppDelegate& self) { self.quitApp(); })});
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
  if (!services_.defaults.hasValue(kInitialToolTipDelay)) {
    services_.defaults.setInteger(kInitialToolTipDelay, kToolTipDelay);
  }
  launchState_.applySettingsAutoOpenMigrationForExistingInstallsIfNeeded();
  services_.activationHistory.startObservingIfNeeded();
  subscribeLanguage();
  statusMenu_->setupMainMenu();
  services_.shell.setActivationPolicy(ActivationPolicy::accessory);
  statusMenu_->setupStatusBar();
  switchboard_ = std::make_unique<MenuSwitchboard>(services_);
  setupHotkeys();
  observeChanges();
  services_.mainQueue.async(weakSelf_.bind([](AppDelegate& self) { self.presentFirstLaunchPermissionsIfNeeded(); }));
  services_.mainQueue.after(kStatusItemSettlingTime, weakSelf_.bind([](AppDelegate& self) {
    self.evaluateStatusItemVisibility(HiddenStatusItem::openSettings);
  }));
  ringWarmer_ = std::make_unique<RingWarmer>(RingWarmer::Services{
      services_.configManager, services_.workspace, services_.mainQueue,
      [this](const PieMenu& menu) { switchboard_->warmUp(menu); }, [this] { return switchboard_->isMenuVisible(); }});
}

void AppDelegate::applicationWillTerminate() {
  ringWarmer_.reset();
  if (hotkeyManager_) hotkeyManager_->unregisterAll();
  trackpadGestureMonitor_.stop();
  if (services_.restoreNativeAppSwitcher) services_.restoreNativeAppSwitcher();
}

bool AppDelegate::applicationShouldHandleReopen(bool /*hasVisibleWindows*/) {
  openSettings();
  return true;
}

void AppDelegate::openSettings() {
  if (!settingsWindow_) settingsWindow_ = services_.windows.makeSettingsWindow();
  if (settingsWindow_) settingsWindow_->show();
}

void AppDelegate::quitApp() { services_.shell.terminate(); }

bool AppDelegate::trigger(std::string_view menuId) {
  const auto id = Uuid::parse(menuId);
  if (!id || services_.configManager.current().menu(*id) == nullptr) {
    // The text comes from anybody: only an identifier is repeated.
    services_.log.error("trigger skipped: " + (id ? "no menu has the id " + id->string() : "this is no menu's id"));
    return false;
  }
  services_.mainQueue.async(weakSelf_.bind([id = *id](AppDelegate& self) { self.switchboard_->handleRequest(id); }));
  return true;
}

void AppDelegate::iconsChanged() {
  if (ringWarmer_) ringWarmer_->warm();
}

void AppDelegate::subscribeLanguage() {
  auto languageChanged = removingDuplicates<AppLanguage>(weakSelf_.bind(
      [](AppDelegate& self, AppLanguage language) { self.services_.localization.setLanguage(language); }));
  languageSubscription_ = services_.configManager.configuration().subscribe(
      [languageChanged = std::move(languageChanged)](const PieConfiguration& configuration) {
        languageChanged(configuration.language);
      });
}

void AppDelegate::observeChanges() {
  configurationObserver_ = services_.notifications.addObserver(
      ConfigManager::configurationDidChange, weakSelf_.bind([](AppDelegate& self) { self.configurationChanged(); }));
  modifiersObserver_ =
      services_.hotkeyService.onModifiersMoved(weakSelf_.bind([](AppDelegate& self) { self.setupHotkeys(); }));
  didBecomeActiveObserver_ = services_.shell.onDidBecomeActive(weakSelf_.bind([](AppDelegate& self) {
    self.presentSettingsOnceIfFirstLaunchPermissionsComplete();
    self.evaluateStatusItemVisibility(HiddenStatusItem::onlyReport);
  }));
  subscribePermissions();
  appActivationObserver_ = services_.workspace.onDidActivateApplication(
      weakSelf_.bind([](AppDelegate& self, const RunningApplication& application) {
        self.switchboard_->prefetchAppCommands(application);
      }));
  const auto reportVisibility =
      weakSelf_.bind([](AppDelegate& self) { self.evaluateStatusItemVisibility(HiddenStatusItem::onlyReport); });
  screenParametersObserver_ = services_.screens.onParametersChanged(reportVisibility);
  statusItemObserver_ = statusMenu_->onVisibilityChanged(reportVisibility);
}

void AppDelegate::configurationChanged() {
  statusMenu_->refreshLocalizedTitles();
  setupHotkeys();
}

void AppDelegate::makeHotkeyManager() {
  hotkeyManager_ = std::make_unique<HotkeyManager>(services_.hotkeyService, services_.log);
  grabbedKeyRouter_ = std::make_unique<GrabbedKeyRouter>(
      *hotkeyManager_, GrabbedKeyRouter::Overlay{
                           [this](HotkeyManager::MenuIndices indices) { return switchboard_->showsOneOf(indices); },
                           [this](const KeyEvent& event) { return switchboard_->quickSelects(event); }});
  grabbedKeyMonitor_ = services_.eventMonitors.addLocalMonitor(
      kKeyDownAndKeyUpMask, weakSelf_.bind([](AppDelegate& self, const KeyEvent& event) {
        return self.switchboard_->isMenuVisible() && self.grabbedKeyRouter_->offer(event);
      }));
}

std::function<void(HotkeyManager::MenuIndices)> AppDelegate::onMainQueue(
    void (MenuSwitchboard::*handle)(const MenuSwitchboard::Candidates&)) const {
  auto handled = weakSelf_.bind([handle](AppDelegate& self, const MenuSwitchboard::Candidates& candidates) {
    (self.switchboard_.get()->*handle)(candidates);
  });
  return [&mainQueue = services_.mainQueue, handled = std::move(handled)](HotkeyManager::MenuIndices indices) {
    mainQueue.async(
        [handled, candidates = MenuSwitchboard::Candidates(indices.begin(), indices.end())] { handled(candidates); });
  };
}

void AppDelegate::setupHotkeys() {
  if (hotkeyManager_) {
    hotkeyManager_->unregisterAll();
  } else {
    makeHotkeyManager();
  }
  hotkeyManager_->onHotkeyPressed = onMainQueue(&MenuSwitchboard::handleHotkeyPressed);
  hotkeyManager_->onHotkeyReleased = onMainQueue(&MenuSwitchboard::handleHotkeyReleased);
  const PieConfiguration& configuration = services_.configManager.current();
  hotkeyManager_->registerAll(configuration.menus);
  setupTrackpadGesture(configuration);
  switchboard_->dismissRunningAppsMenuIfDisabled(configuration);
}

void AppDelegate::setupTrackpadGesture(const PieConfiguration& configuration) {
  trackpadGestureMonitor_.onTap = weakSelf_.bind(
      [](AppDelegate& self, std::int64_t fingerCount) { self.switchboard_->handleTrackpadGesture(fingerCount); });
  std::set<std::int64_t> fingerCounts;
  for (const auto& [fingerCount, menuIndex] : configuration.trackpadGestureTargets()) fingerCounts.insert(fingerCount);
  if (fingerCounts == activeTrackpadFingerCounts_) return;
  activeTrackpadFingerCounts_ = fingerCounts;
  if (fingerCounts.empty()) return trackpadGestureMonitor_.stop();
  trackpadGestureMonitor_.start(std::move(fingerCounts));
}

void AppDelegate::subscribePermissions() {
  permissionsSubscription_ = services_.permissions.subscribe(
      removingDuplicates<PermissionsSnapshot>(droppingFirst<PermissionsSnapshot>(weakSelf_.bind(
          [](AppDelegate& self, const PermissionsSnapshot& snapshot) { self.permissionsChanged(snapshot); }))));
}

void AppDelegate::permissionsChanged(const PermissionsSnapshot& snapshot) {
  setupHotkeys();
  if (!snapshot.accessibilityTrusted) return;
  if (snapshot.inputMonitoringGranted) {
    finishOnboardingIfUp();
    relaunchIfTapIsDeaf();
  } else if (permissionsOnboardingController_ && !services_.permissionService.preflightListenEventAccess()) {
    services_.permissionService.requestListenEventAccess();
  }
}

bool AppDelegate::isOnboardingUp() const {
  return permissionsOnboardingController_ && permissionsOnboardingController_->isUp();
}

void AppDelegate::finishOnboardingIfUp() {
  if (!isOnboardingUp()) return;
  services_.shell.activateIgnoringOtherApps();
  permissionsOnboardingController_->closeAndFinish();
}

void AppDelegate::relaunchIfTapIsDeaf() {
  const HotkeyHIDTap* tap = hotkeyManager_->hidTap();
  if (tap != nullptr && tap->hasPort() && !tap->deliversKeyEvents()) services_.shell.relaunch();
}

void AppDelegate::evaluateStatusItemVisibility(HiddenStatusItem reaction) {
  const auto problem = statusMenu_->visibilityProblem();
  if (services_.publishStatusItemProblem) services_.publishStatusItemProblem(problem);
  if (!problem) return;
  services_.log.error("status item not visible: " + *problem);
  if (reaction == HiddenStatusItem::openSettings && !isOnboardingUp()) openSettings();
}

void AppDelegate::presentFirstLaunchPermissionsIfNeeded() {
  const bool needsAccessibility = HotkeyHIDTap::requiresAccessibility(services_.configManager.current().menus);
  const bool accessibilityGranted = services_.permissions.value().allGranted();
  if (!launchState_.shouldShowPermissionsOnboarding(accessibilityGranted, needsAccessibility)) {
    return presentSettingsOnceIfFirstLaunchPermissionsComplete();
  }
  permissionsOnboardingController_ = services_.windows.makeOnboardingWindow();
  if (!permissionsOnboardingController_) return;
  permissionsOnboardingController_->present(weakSelf_.bind([](AppDelegate& self) { self.onboardingFinished(); }));
}

void AppDelegate::onboardingFinished() {
  launchState_.markPermissionIntroSeen();
  // The window itself is calling, so it goes on a later turn.
  services_.mainQueue.async([window = std::shared_ptr(std::move(permissionsOnboardingController_))] {});
  presentSettingsOnceIfFirstLaunchPermissionsComplete();
}

void AppDelegate::presentSettingsOnceIfFirstLaunchPermissionsComplete() {
  if (launchState_.hasAutoOpenedSettingsAfterPermissions() || !launchState_.hasSeenPermissionIntro()) return;
  const PermissionService& permissions = services_.permissionService;
  if (!permissions.isProcessTrusted() || !permissions.preflightListenEventAccess()) return;
  launchState_.markSettingsAutoOpened();
  openSettings();
}

}  // namespace rondora
