#include "app/menu_switchboard.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "commands/app_commands_menu_items.h"
#include "model/carbon_modifiers.h"

namespace rondora {
namespace {

/// Until the restored application takes keys.
constexpr double kRestoreDelay = 0.15;  // seconds
constexpr HotkeyConfig kNoTrigger{-1, 0};

/// May be pressed again to step the highlight.
bool repeats(const HotkeyConfig& trigger) { return trigger.isAssigned() && !trigger.isStandaloneFn(); }

bool actsOnPreviousApp(const MenuAction& action) {
  return std::holds_alternative<Keystroke>(action) || std::holds_alternative<Snippet>(action) ||
         std::holds_alternative<Unassigned>(action);
}

bool isTrackpadTarget(const PieConfiguration& configuration, std::size_t menuIndex) {
  const auto targets = configuration.trackpadGestureTargets();
  return std::any_of(targets.begin(), targets.end(),
                     [menuIndex](const auto& target) { return target.second == menuIndex; });
}

}  // namespace

MenuSwitchboard::MenuSwitchboard(const AppServices& services) : services_(services) { setupPieMenu(); }

void MenuSwitchboard::setupPieMenu() {
  pieMenuWindow_ = services_.makePieMenuWindow();
  pieMenuWindow_->onItemSelected = weakSelf_.bind([](MenuSwitchboard& self, const PieMenuItem& item) {
    self.pieMenuWindow_->hide();
    self.restoreAndExecute(item);
  });
  pieMenuWindow_->onCommandSelected = weakSelf_.bind([](MenuSwitchboard& self, const PieSubAction& subAction) {
    self.pieMenuWindow_->hide();
    self.perform(subAction);
  });
  pieMenuWindow_->onHoverChanged =
      weakSelf_.bind([](MenuSwitchboard& self, const PieMenuItem* item) { self.updateSnippetPreview(item); });
  pieMenuWindow_->onHide = weakSelf_.bind([](MenuSwitchboard& self) { self.hideSnippetPreview(); });
}

std::optional<std::size_t> MenuSwitchboard::displayedMenuIndex(const std::vector<PieMenu>& menus) const {
  if (!isMenuVisible() || !pieMenuWindow_->displayedMenuId()) return std::nullopt;
  const auto found = std::find_if(menus.begin(), menus.end(), [this](const PieMenu& menu) {
    return menu.id == *pieMenuWindow_->displayedMenuId();
  });
  if (found == menus.end()) return std::nullopt;
  return static_cast<std::size_t>(found - menus.begin());
}

bool MenuSwitchboard::showsOneOf(std::span<const std::uint32_t> menuIndices) const {
  const auto displayed = displayedMenuIndex(configuration().menus);
  return displayed && std::find(menuIndices.begin(), menuIndices.end(), *displayed) != menuIndices.end();
}

std::optional<std::size_t> MenuSwitchboard::resolveMenuIndex(const Candidates& candidates,
                                                             const std::vector<PieMenu>& menus) const {
  const auto qualifies = [&](std::size_t index) {
    return std::find(candidates.begin(), candidates.end(), index) != candidates.end() &&
           menus[index].hotkey.isAssigned();
  };
  if (const auto displayed = displayedMenuIndex(menus); displayed && qualifies(*displayed)) return displayed;
  for (std::size_t i = 0; i < menus.size(); ++i) {
    if (qualifies(i)) return i;
  }
  return std::nullopt;
}

void MenuSwitchboard::rememberFrontmostApplication() { previousApp_ = services_.workspace.frontmostApplication(); }

void MenuSwitchboard::handleHotkeyPressed(const Candidates& candidateIndices) {
  const auto& menus = configuration().menus;
  const auto index = resolveMenuIndex(candidateIndices, menus);
  if (!index || !menus[*index].isEnabled()) return;
  if (!isMenuVisible()) rememberFrontmostApplication();
  togglePieMenu(menus[*index], menus[*index].hotkey);
}

void MenuSwitchboard::handleTrackpadGesture(std::int64_t fingerCount) {
  const auto targets = configuration().trackpadGestureTargets();
  const auto target = targets.find(fingerCount);
  if (target == targets.end() || target->second >= configuration().menus.size()) return;
  if (!isMenuVisible()) rememberFrontmostApplication();
  togglePieMenu(configuration().menus[target->second], kNoTrigger);
}

void MenuSwitchboard::handleRequest(const Uuid& menuId) {
  const PieMenu* menu = configuration().menu(menuId);
  if (menu == nullptr || !menu->isEnabled()) return;
  if (!isMenuVisible()) rememberFrontmostApplication();
  togglePieMenu(*menu, kNoTrigger);
}

void MenuSwitchboard::togglePieMenu(const PieMenu& menu, const HotkeyConfig& triggerHotkey) {
  if (isMenuVisible()) {
    const bool isSameMenu = pieMenuWindow_->displayedMenuId() == menu.id;
    if (repeats(triggerHotkey) && isSameMenu) return stepHighlight();
    return closeAndRestore();
  }
  if (menu.kind == PieMenuKind::appCommands) return showAppCommands(menu, triggerHotkey);
  show(menu, triggerHotkey, std::nullopt);
}

void MenuSwitchboard::stepHighlight() {
  const bool isStillTheOpeningPress =
      pieMenuWindow_->chordNavigationHotkey() && pieMenuWindow_->chordNavigationIgnoreUntilMainKeyUp();
  if (!isStillTheOpeningPress) pieMenuWindow_->advanceRunningAppsSelection();
}

void MenuSwitchboard::show(const PieMenu& menu, const HotkeyConfig& triggerHotkey,
                           std::optional<PieMenuWindowController::AppCommands> appCommands) {
  showsRunningApps_ = menu.kind == PieMenuKind::runningApps;
  pieMenuWindow_->show(menu, itemsOverride(menu), repeats(triggerHotkey) ? std::optional(triggerHotkey) : std::nullopt,
                       std::move(appCommands));
  if (triggerHotkey.hasModifiers()) armModifierReleaseDismissal(triggerHotkey);
}

std::optional<std::vector<PieMenuItem>> MenuSwitchboard::itemsOverride(const PieMenu& menu) const {
  if (menu.kind != PieMenuKind::runningApps) return std::nullopt;
  return services_.runningAppsMenuItems.build(menu);
}

void MenuSwitchboard::warmUp(const PieMenu& menu) const {
  if (menu.kind == PieMenuKind::appCommands) return;  // which commands there are is not known before
  pieMenuWindow_->warmUp(menu, itemsOverride(menu));
}

void MenuSwitchboard::armModifierReleaseDismissal(const HotkeyConfig& hotkey) {
  pieMenuWindow_->scheduleClickModeModifierChordReleaseDismissal(
      hotkey, weakSelf_.bind([](MenuSwitchboard& self) { self.handleClickModeModifierChordReleased(); }));
}

void MenuSwitchboard::handleClickModeModifierChordReleased() {
  if (!isMenuVisible()) return;
  const auto selection = pieMenuWindow_->currentSelection();
  pieMenuWindow_->hide();
  if (!selection) return restorePreviousApp();
  if (const auto* item = std::get_if<PieMenuItem>(&*selection)) return restoreAndExecute(*item);
  perform(std::get<PieSubAction>(*selection));
}

bool MenuSwitchboard::cancelPendingAppCommands(const Candidates& candidates) {
  const auto& menus = configuration().menus;
  const auto index = resolveMenuIndex(candidates, menus);
  if (!index || menus[*index].kind != PieMenuKind::appCommands || menus[*index].hotkey.hasModifiers()) return false;
  pendingAppCommandsToken_.reset();
  previousApp_.reset();
  return true;
}

void MenuSwitchboard::handleHotkeyReleased(const Candidates& candidateIndices) {
  if (pendingAppCommandsToken_ && cancelPendingAppCommands(candidateIndices)) return;
  const auto& menus = configuration().menus;
  const auto displayed = displayedMenuIndex(menus);
  const auto released = resolveMenuIndex(candidateIndices, menus);
  if (!displayed || displayed != released) return;
  const HotkeyConfig& hotkey = menus[*released].hotkey;
  if (hotkey.isStandaloneFn()) return handleClickModeModifierChordReleased();
  if (pieMenuWindow_->chordNavigationHotkey()) pieMenuWindow_->clearChordNavigationIgnoreUntilMainKeyUp();
  if (!hotkey.hasModifiers()) handleClickModeModifierChordReleased();
}

void MenuSwitchboard::showAppCommands(const PieMenu& menu, const HotkeyConfig& triggerHotkey) {
  const auto application = services_.subActions.targetApp();
  if (!application || !application->bundleIdentifier) return;
  AppCommandsRequest request{services_.random.uuid(), menu, triggerHotkey, *application->bundleIdentifier};
  pendingAppCommandsToken_ = request.token;
  services_.subActions.resolve(
      *application,
      weakSelf_.bind([request = std::move(request)](MenuSwitchboard& self, std::vector<PieSubAction> commands) {
        self.appCommandsResolved(request, std::move(commands));
      }));
}

bool MenuSwitchboard::holdsModifiers(const HotkeyConfig& hotkey) const {
  const std::uint64_t required = CarbonModifiers::eventFlags(hotkey.carbonModifiers);
  return (services_.eventMonitors.currentModifierFlags() & required) == required;
}

void MenuSwitchboard::appCommandsResolved(const AppCommandsRequest& request, std::vector<PieSubAction> commands) {
  if (pendingAppCommandsToken_ != request.token) return;
  pendingAppCommandsToken_.reset();
  if (commands.empty() || isMenuVisible()) return;
  if (!holdsModifiers(request.triggerHotkey)) return previousApp_.reset();
  const AppSubMenu* subMenu = configuration().appSubMenu(request.bundleIdentifier);
  auto items = AppCommandsMenuItems::build(commands);
  show(request.menu, request.triggerHotkey,
       PieMenuWindowController::AppCommands{std::move(commands), std::move(items),
                                            subMenu ? subMenu->rotationDegrees : std::nullopt,
                                            request.bundleIdentifier});
}

void MenuSwitchboard::prefetchAppCommands(const RunningApplication& application) {
  const std::string ownIdentifier = services_.environment.bundleIdentifier();
  if (application.bundleIdentifier.value_or("") == ownIdentifier) return;
  if (application.activationPolicy != ActivationPolicy::regular) return;
  const auto& menus = configuration().menus;
  const auto menu = std::find_if(menus.begin(), menus.end(),
                                 [](const PieMenu& candidate) { return candidate.kind == PieMenuKind::appCommands; });
  if (menu == menus.end() || !menu->isEnabled()) return;
  const auto index = static_cast<std::size_t>(menu - menus.begin());
  if (menu->hotkey.isAssigned() || isTrackpadTarget(configuration(), index)) services_.subActions.prefetch(application);
}

void MenuSwitchboard::dismissRunningAppsMenuIfDisabled(const PieConfiguration& configuration) {
  const auto index = displayedMenuIndex(configuration.menus);
  if (index && !configuration.menus[*index].isEnabled()) closeAndRestore();
}

void MenuSwitchboard::closeAndRestore() {
  pieMenuWindow_->hide();
  restorePreviousApp();
}

void MenuSwitchboard::restorePreviousApp() {
  if (const auto application = std::exchange(previousApp_, std::nullopt)) services_.workspace.activate(*application);
}

void MenuSwitchboard::restoreAndExecute(const PieMenuItem& item) {
  if (previousApp_ && actsOnPreviousApp(item.action)) {
    const std::int32_t targetPID = previousApp_->processIdentifier;
    restorePreviousApp();
    services_.mainQueue.after(kRestoreDelay, weakSelf_.bind([item, targetPID](MenuSwitchboard& self) {
      self.services_.appLauncher.execute(item, targetPID);
    }));
    return;
  }
  previousApp_.reset();
  if (hasQuit(item)) return;
  const auto frontmost = services_.workspace.frontmostApplication();
  services_.appLauncher.execute(item, frontmost ? std::optional(frontmost->processIdentifier) : std::nullopt);
}

bool MenuSwitchboard::hasQuit(const PieMenuItem& item) const {
  const auto* launch = showsRunningApps_ ? std::get_if<LaunchApp>(&item.action) : nullptr;
  return launch && !services_.appLauncher.runningApplication(launch->bundleIdentifier);
}

void MenuSwitchboard::perform(const PieSubAction& command) {
  services_.subActions.perform(command, std::exchange(previousApp_, std::nullopt));
}

void MenuSwitchboard::updateSnippetPreview(const PieMenuItem* item) {
  const auto* snippet = item == nullptr ? nullptr : std::get_if<Snippet>(&item->action);
  const auto surroundings = pieMenuWindow_->highlightedSurroundings();
  if (snippet == nullptr || !surroundings) return hideSnippetPreview();
  if (!snippetPreviewPopover_) snippetPreviewPopover_ = services_.windows.makeSnippetPreviewPopover();
  if (!snippetPreviewPopover_) return;
  snippetPreviewPopover_->show(snippet->text, [&](Size size) { return previewCorner(*surroundings, size); });
}

void MenuSwitchboard::hideSnippetPreview() {
  if (snippetPreviewPopover_) snippetPreviewPopover_->hide();
}

}  // namespace rondora
