#include "app/menu_switchboard.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "app/snippet_preview.h"
#include "app/trigger_rules.h"
#include "commands/app_commands_menu_items.h"
#include "model/carbon_modifiers.h"

namespace rondora {
namespace {

/// Seconds within which a user who means to hold the keys does not let go.
constexpr double kTapTime = 0.25;

}  // namespace

MenuSwitchboard::MenuSwitchboard(const Services& services)
    : services_(services), pieMenuWindow_(services.pieMenuWindow) {
  wirePieMenu();
}

void MenuSwitchboard::wirePieMenu() {
  pieMenuWindow_.onItemSelected = weakSelf_.bind([](MenuSwitchboard& self, const PieMenuItem& item) {
    self.pieMenuWindow_.hide();
    self.restoreAndExecute(item);
    self.services_.chosen();
  });
  pieMenuWindow_.onCommandSelected = weakSelf_.bind([](MenuSwitchboard& self, const PieSubAction& subAction) {
    self.pieMenuWindow_.hide();
    self.perform(subAction);
    self.services_.chosen();
  });
  pieMenuWindow_.onHoverChanged =
      weakSelf_.bind([](MenuSwitchboard& self, const PieMenuItem* item) { self.updateSnippetPreview(item); });
  pieMenuWindow_.onHide = weakSelf_.bind([](MenuSwitchboard& self) {
    self.hideSnippetPreview();
    // Not while the ring is open: an application without the keyboard switches commands off.
    if (const auto application = std::exchange(self.commandsShownOf_, {})) self.prefetchAppCommands(*application);
  });
}

std::optional<Uuid> MenuSwitchboard::displayedMenu() const {
  return isMenuVisible() ? pieMenuWindow_.displayedMenuId() : std::nullopt;
}

std::optional<std::size_t> MenuSwitchboard::displayedMenuIndex() const {
  const auto& menus = configuration().menus;
  const auto found =
      std::find_if(menus.begin(), menus.end(), [id = displayedMenu()](const PieMenu& menu) { return menu.id == id; });
  if (found == menus.end()) return std::nullopt;
  return static_cast<std::size_t>(found - menus.begin());
}

bool MenuSwitchboard::showsOneOf(std::span<const std::uint32_t> menuIndices) const {
  const auto displayed = displayedMenuIndex();
  return displayed && std::find(menuIndices.begin(), menuIndices.end(), *displayed) != menuIndices.end();
}

std::optional<std::size_t> MenuSwitchboard::resolveMenuIndex(const Candidates& candidates) const {
  return rondora::resolveMenuIndex(candidates, configuration().menus, displayedMenuIndex());
}

void MenuSwitchboard::handleHotkeyPressed(const Candidates& candidateIndices, ModifierHold modifiers) {
  const auto index = resolveMenuIndex(candidateIndices);
  if (!index) return;
  const PieMenu& menu = configuration().menus[*index];
  triggerModifiers_ = modifiers;
  if (menu.isEnabled()) trigger(menu, menu.hotkey);
}

void MenuSwitchboard::handleTrackpadGesture(std::int64_t fingerCount) {
  const auto targets = configuration().trackpadGestureTargets();
  const auto target = targets.find(fingerCount);
  if (target == targets.end() || target->second >= configuration().menus.size()) return;
  trigger(configuration().menus[target->second], kNoTrigger);
}

void MenuSwitchboard::handleRequest(const Uuid& menuId) {
  const PieMenu* menu = configuration().menu(menuId);
  if (menu != nullptr && menu->isEnabled()) trigger(*menu, kNoTrigger);
}

void MenuSwitchboard::trigger(const PieMenu& menu, const HotkeyConfig& triggerHotkey) {
  if (!isMenuVisible()) previousApp_ = services_.workspace.frontmostApplication();
  togglePieMenu(menu, triggerHotkey);
}

void MenuSwitchboard::togglePieMenu(const PieMenu& menu, const HotkeyConfig& triggerHotkey) {
  switch (toggleOutcome(menu, triggerHotkey, displayedMenu())) {
    case Toggle::step:
      return stepHighlight();
    case Toggle::close:
      return closeAndRestore();
    case Toggle::show:
      if (menu.kind == PieMenuKind::appCommands) return showAppCommands(menu, triggerHotkey);
      return show(menu, triggerHotkey, std::nullopt);
  }
}

void MenuSwitchboard::stepHighlight() {
  const bool isStillTheOpeningPress =
      pieMenuWindow_.chordNavigationHotkey() && pieMenuWindow_.chordNavigationIgnoreUntilMainKeyUp();
  if (!isStillTheOpeningPress) pieMenuWindow_.advanceRunningAppsSelection();
}

void MenuSwitchboard::show(const PieMenu& menu, const HotkeyConfig& triggerHotkey,
                           std::optional<PieMenuWindowController::AppCommands> appCommands) {
  lastShown_ = menu.id;
  showsRunningApps_ = menu.kind == PieMenuKind::runningApps;
  shownAt_ = services_.clock.uptime();
  services_.windows.closePopups();
  pieMenuWindow_.show(menu, itemsOverride(menu), repeats(triggerHotkey) ? std::optional(triggerHotkey) : std::nullopt,
                      std::move(appCommands));
  pieMenuWindow_.hideWhenIdle(
      weakSelf_.bind([triggerHotkey](MenuSwitchboard& self) { return self.holdsAnyKeyOf(triggerHotkey); }));
  const bool releaseChooses = triggerHotkey.hasModifiers() && triggerModifiers_ == ModifierHold::held;
  if (releaseChooses) armModifierReleaseDismissal(triggerHotkey);
  if (isMenuVisible()) services_.opened();
}

std::optional<std::vector<PieMenuItem>> MenuSwitchboard::itemsOverride(const PieMenu& menu) const {
  if (menu.kind != PieMenuKind::runningApps) return std::nullopt;
  return services_.runningAppsMenuItems.build(menu);
}

void MenuSwitchboard::prerender(const PieMenu& menu) const {
  if (menu.kind == PieMenuKind::appCommands) return prerenderAppCommands(menu);
  pieMenuWindow_.prerender(menu, itemsOverride(menu), std::nullopt);
}

void MenuSwitchboard::prerenderAppCommands(const PieMenu& menu) const {
  const auto application = services_.subActions.targetApp();
  if (!application || !application->bundleIdentifier) return;
  auto commands = services_.subActions.known(*application);
  if (!commands || commands->empty()) return;
  pieMenuWindow_.prerender(menu, std::nullopt, appCommands(*application->bundleIdentifier, *std::move(commands)));
}

PieMenuWindowController::AppCommands MenuSwitchboard::appCommands(const std::string& bundleIdentifier,
                                                                  std::vector<PieSubAction> commands) const {
  const AppSubMenu* subMenu = configuration().appSubMenu(bundleIdentifier);
  auto items = AppCommandsMenuItems::build(commands);
  return {std::move(commands), std::move(items), subMenu ? subMenu->rotationDegrees : std::nullopt, bundleIdentifier};
}

void MenuSwitchboard::armModifierReleaseDismissal(const HotkeyConfig& hotkey) {
  pieMenuWindow_.scheduleClickModeModifierChordReleaseDismissal(
      hotkey, weakSelf_.bind([](MenuSwitchboard& self) { self.handleClickModeModifierChordReleased(); }));
}

void MenuSwitchboard::handleClickModeModifierChordReleased() {
  if (!isMenuVisible()) return;
  const auto selection = pieMenuWindow_.currentSelection();
  pieMenuWindow_.hide();
  if (!selection && services_.clock.uptime() - shownAt_ <= kTapTime) services_.tapped();
  if (!selection) return restorePreviousApp();
  if (const auto* item = std::get_if<PieMenuItem>(&*selection)) {
    restoreAndExecute(*item);
  } else {
    perform(std::get<PieSubAction>(*selection));
  }
  services_.chosen();
}

bool MenuSwitchboard::cancelPendingAppCommands(const Candidates& candidates) {
  const auto& menus = configuration().menus;
  const auto index = resolveMenuIndex(candidates);
  if (!index || menus[*index].kind != PieMenuKind::appCommands || menus[*index].hotkey.hasModifiers()) return false;
  pendingAppCommandsToken_.reset();
  previousApp_.reset();
  return true;
}

void MenuSwitchboard::handleHotkeyReleased(const Candidates& candidateIndices) {
  if (pendingAppCommandsToken_ && cancelPendingAppCommands(candidateIndices)) return;
  const auto released = resolveMenuIndex(candidateIndices);
  if (!released || displayedMenuIndex() != released) return;
  const HotkeyConfig& hotkey = configuration().menus[*released].hotkey;
  if (hotkey.isStandaloneFn()) return handleClickModeModifierChordReleased();
  if (pieMenuWindow_.chordNavigationHotkey()) pieMenuWindow_.clearChordNavigationIgnoreUntilMainKeyUp();
  if (!hotkey.hasModifiers()) handleClickModeModifierChordReleased();
}

void MenuSwitchboard::showAppCommands(const PieMenu& menu, const HotkeyConfig& triggerHotkey) {
  pendingAppCommandsToken_.reset();
  const auto application = services_.subActions.targetApp();
  if (!application || !application->bundleIdentifier) return;
  AppCommandsRequest request{services_.random.uuid(), menu.id, triggerHotkey, triggerModifiers_, *application};
  pendingAppCommandsToken_ = request.token;
  services_.subActions.resolve(
      *application,
      weakSelf_.bind([request = std::move(request)](MenuSwitchboard& self, std::vector<PieSubAction> commands) {
        self.appCommandsResolved(request, std::move(commands));
      }));
}

bool MenuSwitchboard::holdsModifiers(const HotkeyConfig& hotkey) const {
  return allHeld(services_.eventMonitors.currentModifierFlags(), CarbonModifiers::eventFlags(hotkey.carbonModifiers));
}

/// The release of a trigger without modifiers closes its menu, so it is held while the menu is open.
bool MenuSwitchboard::holdsAnyKeyOf(const HotkeyConfig& trigger) const {
  if (!trigger.isAssigned() || !trigger.hasModifiers()) return trigger.isAssigned();
  const std::uint64_t modifiers = CarbonModifiers::eventFlags(trigger.carbonModifiers);
  return (services_.eventMonitors.currentModifierFlags() & modifiers) != 0;
}

void MenuSwitchboard::appCommandsResolved(const AppCommandsRequest& request, std::vector<PieSubAction> commands) {
  if (pendingAppCommandsToken_ != request.token) return;
  pendingAppCommandsToken_.reset();
  if (commands.empty() || isMenuVisible()) return;
  const PieMenu* menu = configuration().menu(request.menuId);
  const bool isStillHeld = request.modifiers == ModifierHold::latched || holdsModifiers(request.triggerHotkey);
  const bool isStillThere = menu != nullptr && menu->kind == PieMenuKind::appCommands && menu->isEnabled();
  if (!isStillThere || !isStillHeld) return previousApp_.reset();
  previousApp_ = request.application;
  triggerModifiers_ = request.modifiers;
  show(*menu, request.triggerHotkey, appCommands(*request.application.bundleIdentifier, std::move(commands)));
  commandsShownOf_ = request.application;
}

void MenuSwitchboard::prefetchAppCommands(const RunningApplication& application) {
  if (!prefetchesAppCommands(configuration(), application, services_.environment.bundleIdentifier())) return;
  services_.subActions.prefetch(application);
}

void MenuSwitchboard::dismiss() {
  pendingAppCommandsToken_.reset();
  pieMenuWindow_.hide();
  previousApp_.reset();
}

void MenuSwitchboard::dismissRunningAppsMenuIfDisabled() {
  const auto index = displayedMenuIndex();
  if (index && !configuration().menus[*index].isEnabled()) closeAndRestore();
}

void MenuSwitchboard::closeAndRestore() {
  pieMenuWindow_.hide();
  restorePreviousApp();
}

void MenuSwitchboard::restorePreviousApp() {
  if (const auto application = std::exchange(previousApp_, std::nullopt)) services_.workspace.activate(*application);
}

void MenuSwitchboard::restoreAndExecute(const PieMenuItem& item) {
  if (const auto delay = restoreDelay(item.action); delay && previousApp_) {
    const std::int32_t targetPID = previousApp_->processIdentifier;
    restorePreviousApp();
    services_.mainQueue.after(*delay, weakSelf_.bind([item, menuId = lastShown_, targetPID](MenuSwitchboard& self) {
      self.execute(item, menuId, targetPID);
    }));
    return;
  }
  previousApp_.reset();
  if (hasQuit(item)) return;
  const auto frontmost = services_.workspace.frontmostApplication();
  execute(item, lastShown_, frontmost ? std::optional(frontmost->processIdentifier) : std::nullopt);
}

void MenuSwitchboard::run(const PieMenuItem& item, const Uuid& menuId,
                          const std::optional<RunningApplication>& target) {
  dismiss();
  if (!target || !std::holds_alternative<Keystroke>(item.action)) return execute(item, menuId, std::nullopt);
  previousApp_ = target;
  lastShown_ = menuId;
  showsRunningApps_ = false;
  restoreAndExecute(item);
}

void MenuSwitchboard::execute(const PieMenuItem& item, const Uuid& menuId, std::optional<std::int32_t> targetPID) {
  services_.appLauncher.execute(item, targetPID,
                                weakSelf_.bind([item, menuId](MenuSwitchboard& self, const auto& failure) {
                                  if (self.services_.actionEnded) self.services_.actionEnded(item, menuId, failure);
                                }));
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
  const auto surroundings = pieMenuWindow_.highlightedSurroundings();
  if (snippet == nullptr || !surroundings) return hideSnippetPreview();
  if (!snippetPreviewPopover_) snippetPreviewPopover_ = services_.windows.makeSnippetPreviewPopover();
  if (!snippetPreviewPopover_) return;
  const auto preview = snippetPreview(snippet->text, services_.snippetHint());
  if (!preview) return hideSnippetPreview();
  snippetPreviewPopover_->show(*preview, [&](Size size) { return previewCorner(*surroundings, size); });
}

void MenuSwitchboard::hideSnippetPreview() {
  if (snippetPreviewPopover_) snippetPreviewPopover_->hide();
}

}  // namespace rondora
