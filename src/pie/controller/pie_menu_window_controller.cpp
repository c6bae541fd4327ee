#include "pie/controller/pie_menu_window_controller.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/appearance_fields.h"
#include "model/carbon_modifiers.h"
#include "model/ring_order.h"
#include "pie/controller/opening_animation.h"
#include "pie/controller/pie_view.h"
#include "pie/geometry/ring_layout.h"
#include "pie/geometry/sector_geometry.h"
#include "pie/picture/ring_picture.h"

namespace rondora {
namespace {

constexpr double kShortestStepInterval = 0.018;  // seconds
constexpr double kTremble = 4;                   // points
constexpr double kLargestRadiusWithoutScreen = 400;

std::optional<Screen> screenAt(const Screens& screens, Point pointer) {
  const std::vector<Screen> all = screens.all();
  for (const Screen& screen : all) {
    if (screen.frame.contains(pointer)) return screen;
  }
  if (const auto main = screens.main()) return main;
  return all.empty() ? std::nullopt : std::optional(all.front());
}

double largestRadius(const std::optional<Screen>& screen) {
  if (!screen || screen->visibleFrame.isEmpty()) return kLargestRadiusWithoutScreen;
  const Size size = screen->visibleFrame.size;
  return std::max(40.0, std::min(size.width, size.height) / 2);
}

}  // namespace

PieMenuWindowController::PieMenuWindowController(const Ports& ports, Environment environment)
    : ports_(ports), environment_(std::move(environment)) {}

PieMenuWindowController::~PieMenuWindowController() { tearDown(); }

void PieMenuWindowController::show(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                                   std::optional<HotkeyConfig> navigationHotkeyForChordRepeat,
                                   std::optional<AppCommands> appCommands) {
  tearDown();
  const double rotation =
      appCommands && appCommands->rotationDegrees ? *appCommands->rotationDegrees : menu.rotationDegrees;
  auto application = appCommands ? appCommands->application : std::nullopt;
  chooseSectors(menu, std::move(itemsOverride), std::move(appCommands));
  makePanel(menu, rotation, std::move(application));
  chordNavigationHotkey_ = navigationHotkeyForChordRepeat;
  chordNavigationIgnoreUntilMainKeyUp_ = true;
  installMonitors();
  window_->open();
  showMouseLocation_ = ports_.pointer.location();
}

void PieMenuWindowController::warmUp(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride) const {
  const auto items = inRingOrder(itemsOverride ? *std::move(itemsOverride) : menu.items);
  const double largest = largestRadius(screenAt(ports_.screens, ports_.pointer.location()));
  const RingLayout layout = RingLayout::make(menu, menu.rotationDegrees, items.size(), largest);
  ports_.overlayPanels.warmUp(
      makeRingPicture(menu, layout, {items, displayTitles(items), resolvedShortcutLabels(items)}));
}

void PieMenuWindowController::chooseSectors(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                                            std::optional<AppCommands> appCommands) {
  if (appCommands) {
    displayedItems_ = std::move(appCommands->items);
    displayedCommands_ = std::move(appCommands->commands);
  } else {
    displayedItems_ = inRingOrder(itemsOverride ? *std::move(itemsOverride) : menu.items);
  }
  displayedShortcutLabels_ = ShortcutLabels(resolvedShortcutLabels(displayedItems_));
  displayedMenuId_ = menu.id;
}

void PieMenuWindowController::makePanel(const PieMenu& menu, double rotationDegrees,
                                        std::optional<std::string> application) {
  const Point pointer = ports_.pointer.location();
  restingPlace_ = pointer;
  const std::optional<Screen> screen = screenAt(ports_.screens, pointer);
  const double largest = largestRadius(screen);
  const RingLayout layout = RingLayout::make(menu, rotationDegrees, displayedItems_.size(), largest);
  highlightState_ = std::make_unique<PieMenuHighlightState>(ports_.haptics);
  window_ = std::make_unique<PieView>(
      PieView::Ports{ports_.overlayPanels, ports_.pointer, ports_.haptics, ports_.mainQueue, ports_.clock},
      squareAround(pointer, layout.halfSide()), displayedItems_.size(),
      OpeningAnimation{drawn<&PieMenu::animationDuration>(menu)});
  window_->setPicture(makeRingPicture(
      menu, layout,
      {displayedItems_, displayTitles(displayedItems_), displayedShortcutLabels_.labels(), std::move(application)}));
  visibleFrame_ = screen ? screen->visibleFrame : window_->frame();
  MouseTrackingNSView& tracking = window_->tracking();
  tracking.center = layout.center();
  tracking.radius = layout.outerRadius;
  tracking.innerRadius = layout.innerRadius;
  tracking.sectorCount = layout.sectorCount;
  tracking.rotationDegrees = layout.rotationDegrees;
  tracking.items = displayedItems_;
  tracking.innerCircleHighlightsFirstSector = menu.kind == PieMenuKind::runningApps;
  tracking.hapticFeedbackEnabled = hapticFeedbackEnabled();
  tracking.cursorUpdate(tracking.center);
  wireView();
}

void PieMenuWindowController::wireView() {
  using Self = PieMenuWindowController;
  MouseTrackingNSView& tracking = window_->tracking();
  tracking.onPointerLocationUpdate = weakSelf_.bind([](Self& self, Point location) { self.pointerAt(location); });
  tracking.onHover = weakSelf_.bind([](Self& self, std::optional<std::size_t> index) { self.pointerHovered(index); });
  tracking.onSelect =
      weakSelf_.bind([](Self& self, const PieMenuItem&, std::size_t index) { self.selectDisplayed(index); });
  tracking.onDismiss = weakSelf_.bind([](Self& self) { self.hide(); });
  window_->onLost = weakSelf_.bind([](Self& self) { self.hide(); });
  highlightState_->observe(
      weakSelf_.bind([](Self& self, std::optional<std::size_t> /*former*/, std::optional<std::size_t> present) {
        if (self.window_) self.window_->showHighlight(present);
      }));
}

std::vector<std::string> PieMenuWindowController::displayTitles(const std::vector<PieMenuItem>& items) const {
  std::vector<std::string> titles;
  titles.reserve(items.size());
  for (const PieMenuItem& item : items) {
    titles.push_back(environment_.displayTitle ? environment_.displayTitle(item) : item.title);
  }
  return titles;
}

void PieMenuWindowController::installMonitors() {
  using Self = PieMenuWindowController;
  localMonitor_ = ports_.eventMonitors.addLocalMonitor(
      kKeyDownAndKeyUpMask,
      weakSelf_.bind([](Self& self, const KeyEvent& event) { return self.handleKeyEvent(event); }));
  screenParamsObserver_ = ports_.screens.onParametersChanged(weakSelf_.bind([](Self& self) { self.hide(); }));
}

void PieMenuWindowController::hide() {
  if (!window_) return;
  tearDown();
  if (const auto hidden = onHide) hidden();
}

void PieMenuWindowController::tearDown() {
  modifierChordReleaseWorkItem_.reset();
  modifierChordReleaseMonitors_.clear();
  localMonitor_.reset();
  screenParamsObserver_.reset();
  highlightState_.reset();
  displayedCommands_.reset();
  displayedItems_.clear();
  displayedShortcutLabels_ = {};
  displayedMenuId_.reset();
  chordNavigationHotkey_.reset();
  lastChordAdvanceUptime_ = 0;
  restingPlace_.reset();
  hoveredIndex_.reset();
  window_.reset();
}

bool PieMenuWindowController::isVisible() const { return window_ && window_->isVisible(); }

bool PieMenuWindowController::hapticFeedbackEnabled() const {
  return !environment_.hapticFeedbackEnabled || environment_.hapticFeedbackEnabled();
}

std::optional<PieMenuSelection> PieMenuWindowController::currentSelection() const {
  if (!highlightState_) return std::nullopt;
  const auto index = highlightState_->highlightedIndex();
  if (!index || *index >= displayedItems_.size()) return std::nullopt;
  if (displayedCommands_) return (*displayedCommands_)[*index];
  return displayedItems_[*index];
}

void PieMenuWindowController::selectDisplayed(std::size_t index) {
  if (index >= displayedItems_.size()) return;
  // Copies: whoever is told hides the overlay first.
  if (displayedCommands_) {
    const PieSubAction command = (*displayedCommands_)[index];
    if (onCommandSelected) onCommandSelected(command);
  } else {
    const PieMenuItem item = displayedItems_[index];
    if (onItemSelected) onItemSelected(item);
  }
}

void PieMenuWindowController::pointerAt(Point location) {
  if (!window_ || !restingPlace_) return;
  const Point moved = window_->screenPoint(location) - *restingPlace_;
  if (!(std::hypot(moved.x, moved.y) <= kTremble)) restingPlace_.reset();
}

void PieMenuWindowController::pointerHovered(std::optional<std::size_t> index) {
  if (!highlightState_ || restingPlace_) return;
  highlightState_->setHighlightedIndex(index);
  if (std::exchange(hoveredIndex_, index) == index || !onHoverChanged) return;
  onHoverChanged(index && *index < displayedItems_.size() ? &displayedItems_[*index] : nullptr);
}

std::optional<PreviewSurroundings> PieMenuWindowController::hoveredSurroundings() const {
  if (!window_ || !hoveredIndex_) return std::nullopt;
  const MouseTrackingNSView& tracking = window_->tracking();
  const Point center = window_->screenPoint(tracking.center);
  const double middle = startAngle(*hoveredIndex_, tracking.sectorCount, tracking.rotationDegrees) +
                        sectorWidth(tracking.sectorCount) / 2;
  return PreviewSurroundings{squareAround(center, tracking.radius),
                             center + Point{std::cos(middle), std::sin(middle)} * tracking.radius, visibleFrame_};
}

void PieMenuWindowController::advanceRunningAppsSelection() {
  if (!highlightState_ || displayedItems_.empty()) return;
  const double uptime = ports_.clock.uptime();
  const bool hasStepped = lastChordAdvanceUptime_ != 0;
  if (hasStepped && uptime - lastChordAdvanceUptime_ < kShortestStepInterval) return;
  lastChordAdvanceUptime_ = uptime;
  restingPlace_ = ports_.pointer.location();
  highlightState_->advanceSelection(displayedItems_.size(), hapticFeedbackEnabled());
}

bool PieMenuWindowController::handleKeyEvent(const KeyEvent& event) {
  if (!window_) return false;
  if (event.type == KeyEventType::keyDown) return handleKeyDown(event);
  const bool isMainKey = chordNavigationHotkey_ && event.keyCode == chordNavigationHotkey_->keyCode;
  if (event.type == KeyEventType::keyUp && isMainKey) chordNavigationIgnoreUntilMainKeyUp_ = false;
  return false;
}

bool PieMenuWindowController::handleKeyDown(const KeyEvent& event) {
  if (event.keyCode == kEscapeKeyCode) {
    hide();
    return true;
  }
  if (const auto index = quickSelectIndex(event)) {
    selectDisplayed(*index);
    return true;
  }
  if (!isChordNavigationKey(event)) return false;
  advanceRunningAppsSelection();
  return true;
}

std::optional<std::size_t> PieMenuWindowController::quickSelectIndex(const KeyEvent& event) const {
  if (event.type != KeyEventType::keyDown || event.keyCode == kEscapeKeyCode || repeatsOpeningKey(event)) {
    return std::nullopt;
  }
  auto index = displayedShortcutLabels_.indexForPressedKey(event.charactersIgnoringModifiers);
  if (!index) index = displayedShortcutLabels_.indexForPressedKey(event.characters);
  if (!index) index = displayedShortcutLabels_.indexForKeyCode(event.keyCode);
  return index;
}

/// The key that opened the menu and is still down must not choose by repeating itself.
bool PieMenuWindowController::repeatsOpeningKey(const KeyEvent& event) const {
  return event.isRepeat && chordNavigationIgnoreUntilMainKeyUp_ && chordNavigationHotkey_ &&
         event.keyCode == chordNavigationHotkey_->keyCode;
}

bool PieMenuWindowController::isChordNavigationKey(const KeyEvent& event) const {
  if (!chordNavigationHotkey_ || chordNavigationIgnoreUntilMainKeyUp_) return false;
  const HotkeyConfig& hotkey = *chordNavigationHotkey_;
  return hotkey.isAssigned() && !hotkey.isStandaloneFn() && event.keyCode == hotkey.keyCode &&
         CarbonModifiers::carbon(event.modifierFlags) == hotkey.carbonModifiers;
}

void PieMenuWindowController::scheduleClickModeModifierChordReleaseDismissal(const HotkeyConfig& hotkey,
                                                                             std::function<void()> onReleased) {
  modifierChordReleaseWorkItem_.reset();
  if (!hotkey.hasModifiers()) return;
  const std::uint64_t required = HotkeyConfig::cgEventModifiers(hotkey.carbonModifiers);
  modifierChordReleaseWorkItem_ = ports_.mainQueue.workItem(
      0, weakSelf_.bind([required, onReleased = std::move(onReleased)](PieMenuWindowController& self) {
        if (self.isVisible()) self.installReleaseMonitors(required, onReleased);
      }));
}

void PieMenuWindowController::installReleaseMonitors(std::uint64_t requiredFlags, std::function<void()> onReleased) {
  modifierChordReleaseMonitors_.clear();
  if (!onReleased) return;
  if (!allHeld(ports_.eventMonitors.currentModifierFlags(), requiredFlags)) {
    onReleased();
    return;
  }
  modifierChordReleaseMonitors_.push_back(ports_.eventMonitors.addLocalMonitor(
      kFlagsChangedMask, [requiredFlags, onReleased = std::move(onReleased)](const KeyEvent& event) {
        if (allHeld(event.modifierFlags, requiredFlags)) return false;
        const auto released = onReleased;  // the call may end this monitor
        released();
        return false;
      }));
}

}  // namespace rondora
