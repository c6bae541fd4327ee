#include "pie/controller/pie_menu_window_controller.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/trace.h"
#include "model/appearance_fields.h"
#include "pie/controller/opening_animation.h"
#include "pie/controller/pie_view.h"
#include "pie/picture/ring_picture.h"

namespace rondora {
namespace {

constexpr double kPointerSlop = 4;  // points; a hand that holds still moves the pointer this far
constexpr double kMaxRadiusWithoutScreen = 400;
constexpr double kMinRadiusOnScreen = 40;

std::optional<Screen> screenAt(const Screens& screens, Point pointer) {
  const std::vector<Screen> all = screens.all();
  for (const Screen& screen : all) {
    if (screen.frame.contains(pointer)) return screen;
  }
  if (const auto main = screens.main()) return main;
  return all.empty() ? std::nullopt : std::optional(all.front());
}

double maxRadius(const std::optional<Screen>& screen) {
  if (!screen || screen->visibleFrame.isEmpty()) return kMaxRadiusWithoutScreen;
  const Size size = screen->visibleFrame.size;
  return std::max(kMinRadiusOnScreen, std::min(size.width, size.height) / 2);
}

std::vector<std::string> notes(const DisplayedMenu& displayed) {
  std::vector<std::string> notes;
  if (!displayed.commands) return notes;
  for (const PieSubAction& command : *displayed.commands) notes.push_back(command.note);
  return notes;
}

/// The side of a disc that the screens show, along each axis; 0 where they show both or neither.
Point visibleSide(const Screens& screens, Point center, double radius) {
  std::vector<Screen> all = screens.all();
  if (!screens.shareWindows()) {
    std::erase_if(all, [center](const Screen& screen) { return !screen.frame.contains(center); });
  }
  const auto isShown = [&all](Point point) {
    return std::any_of(all.begin(), all.end(), [point](const Screen& screen) { return screen.frame.contains(point); });
  };
  const auto side = [&](Point offset) {
    return static_cast<double>(isShown(center + offset)) - static_cast<double>(isShown(center + offset * -1));
  };
  return {side({radius, 0}), side({0, radius})};
}

}  // namespace

PieMenuWindowController::PieMenuWindowController(const Ports& ports, Environment environment)
    : ports_(ports),
      environment_(std::move(environment)),
      modifierRelease_(ports.eventMonitors, ports.mainQueue, [this] { return isVisible(); }),
      idle_(ports.mainQueue, ports.clock),
      announcements_(ports.announcer, ports.mainQueue, [this](std::size_t index) { return spokenItem(index); }) {}

PieMenuWindowController::~PieMenuWindowController() { tearDown(); }

void PieMenuWindowController::show(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                                   std::optional<HotkeyConfig> navigationHotkeyForChordRepeat,
                                   std::optional<AppCommands> appCommands) {
  tearDown();
  const Point pointer = ports_.pointer.location();
  const std::optional<Screen> screen = screenAt(ports_.screens, pointer);
  displayed_ = DisplayedMenu::make(menu, std::move(itemsOverride), std::move(appCommands), maxRadius(screen));
  displayed_.visibleSide = visibleSide(ports_.screens, pointer, displayed_.layout.hubRadius());
  announceOpening(menu);
  makePanel(menu, pointer);
  visibleFrame_ = screen ? screen->visibleFrame : window_->frame();
  restingPlace_ = pointer;
  chordNavigation_.begin(navigationHotkeyForChordRepeat);
  installMonitors();
  window_->open();
  showMouseLocation_ = ports_.pointer.location();
  if (trace::isOn) trace::line("ring: menu ", menu.id.string(), " opens with ", displayed_.items.size(), " sectors");
}

void PieMenuWindowController::prerender(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                                        std::optional<AppCommands> appCommands) const {
  const double radius = maxRadius(screenAt(ports_.screens, ports_.pointer.location()));
  const auto displayed = DisplayedMenu::make(menu, std::move(itemsOverride), std::move(appCommands), radius);
  ports_.overlayPanels.prerender(picture(menu, displayed));
}

PieMenuWindowController::Preview PieMenuWindowController::preview(const PieMenu& menu,
                                                                  std::optional<std::vector<PieMenuItem>> itemsOverride,
                                                                  std::optional<AppCommands> appCommands,
                                                                  double maxRadius) const {
  auto displayed = DisplayedMenu::make(menu, std::move(itemsOverride), std::move(appCommands), maxRadius);
  Picture drawn = picture(menu, displayed);
  return {std::move(displayed), std::move(drawn)};
}

Picture PieMenuWindowController::picture(const PieMenu& menu, const DisplayedMenu& displayed) const {
  const bool isEmpty = displayed.items.empty();
  const auto& emptyText = environment_.emptyMenuText;
  return makeRingPicture(
      menu, displayed.layout,
      {displayed.items,
       displayTitles(displayed.items),
       displayed.shortcutLabels.labels(),
       {displayed.application, isEmpty && emptyText ? emptyText() : menu.name, isEmpty, displayed.visibleSide},
       dimmedItems(displayed),
       notes(displayed)});
}

/// The panel comes first: it requests its snapshot of the screen, which arrives while the picture is made.
void PieMenuWindowController::makePanel(const PieMenu& menu, Point center) {
  highlightState_ = std::make_unique<PieMenuHighlightState>(ports_.haptics);
  window_ = std::make_unique<PieView>(
      PieView::Ports{ports_.overlayPanels, ports_.pointer, ports_.haptics, ports_.mainQueue, ports_.clock}, center,
      displayed_.layout, displayed_.items.size(), *highlightState_,
      OpeningAnimation{drawn<&PieMenu::animationDuration>(menu)});
  window_->setPicture(picture(menu, displayed_));
  MouseTrackingNSView& tracking = window_->tracking();
  tracking.innerCircleHighlightsFirstSector = menu.kind == PieMenuKind::runningApps;
  tracking.hapticFeedbackEnabled = hapticFeedbackEnabled();
  tracking.cursorUpdate(displayed_.layout.center());
  wireView();
}

void PieMenuWindowController::wireView() {
  using Self = PieMenuWindowController;
  MouseTrackingNSView& tracking = window_->tracking();
  tracking.onPointerLocationUpdate = weakSelf_.bind([](Self& self, Point location) { self.pointerAt(location); });
  tracking.onHover = weakSelf_.bind([](Self& self, std::optional<std::size_t> index) { self.pointerHovered(index); });
  tracking.onSelect = weakSelf_.bind([](Self& self, std::size_t index) { self.selectDisplayed(index); });
  tracking.onDismiss = weakSelf_.bind([](Self& self) { self.hide(); });
  window_->onLost = weakSelf_.bind([](Self& self) { self.hide(); });
  highlightState_->observe(weakSelf_.bind([](Self& self) { self.highlightChanged(); }));
}

std::vector<std::string> PieMenuWindowController::displayTitles(const std::vector<PieMenuItem>& items) const {
  std::vector<std::string> titles;
  titles.reserve(items.size());
  for (const PieMenuItem& item : items) titles.push_back(displayTitle(item));
  return titles;
}

std::string PieMenuWindowController::displayTitle(const PieMenuItem& item) const {
  return environment_.displayTitle ? environment_.displayTitle(item) : item.title;
}

std::vector<bool> PieMenuWindowController::dimmedItems(const DisplayedMenu& displayed) const {
  std::vector<bool> dimmed;
  for (std::size_t i = 0; i < displayed.items.size(); ++i) dimmed.push_back(!isAvailable(displayed, i));
  return dimmed;
}

bool PieMenuWindowController::isAvailable(const DisplayedMenu& displayed, std::size_t index) const {
  if (displayed.commands) return (*displayed.commands)[index].isAvailable;
  if (!environment_.isAvailable || displayed.kind != PieMenuKind::standard) return true;
  return environment_.isAvailable(displayed.items[index]);
}

void PieMenuWindowController::announceOpening(const PieMenu& menu) {
  if (!announcements_.hasListeners()) return;
  std::string text = menu.name;
  if (displayed_.items.empty() && environment_.emptyMenuText) text += kSpokenPause + environment_.emptyMenuText();
  announcements_.opened(std::move(text));
}

std::string PieMenuWindowController::spokenItem(std::size_t index) const {
  SpokenItem item{displayTitle(displayed_.items[index]), index + 1, displayed_.items.size(),
                  displayed_.shortcutLabels.labels()[index], isAvailable(displayed_, index)};
  if (displayed_.commands) item.note = (*displayed_.commands)[index].note;
  return environment_.spokenItem ? environment_.spokenItem(item) : item.title;
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
  trace::line("ring: closes");
  tearDown();
  if (const auto hidden = onHide) hidden();
}

void PieMenuWindowController::tearDown() {
  modifierRelease_.disarm();
  chordNavigation_.end();
  idle_.end();
  announcements_.closed();
  localMonitor_.reset();
  modifierMonitor_.reset();
  screenParamsObserver_.reset();
  restingPlace_.reset();
  window_.reset();
  highlightState_.reset();
  displayed_ = {};
}

void PieMenuWindowController::refreshIcons() {
  if (window_) window_->refreshIcons();
}

bool PieMenuWindowController::isVisible() const { return window_ && window_->isVisible(); }

bool PieMenuWindowController::hapticFeedbackEnabled() const {
  return !environment_.hapticFeedbackEnabled || environment_.hapticFeedbackEnabled();
}

std::optional<PieMenuSelection> PieMenuWindowController::currentSelection() const {
  if (!highlightState_) return std::nullopt;
  const auto index = highlightState_->highlightedIndex();
  if (!index || *index >= displayed_.items.size()) return std::nullopt;
  if (displayed_.commands) return (*displayed_.commands)[*index];
  return displayed_.items[*index];
}

void PieMenuWindowController::selectDisplayed(std::size_t index) {
  if (index >= displayed_.items.size()) return;
  // Copies: the receiver hides the overlay first.
  if (displayed_.commands) {
    const PieSubAction command = (*displayed_.commands)[index];
    if (onCommandSelected) onCommandSelected(command);
  } else {
    const PieMenuItem item = displayed_.items[index];
    if (onItemSelected) onItemSelected(item);
  }
}

void PieMenuWindowController::pointerAt(Point location) {
  idle_.noteInput();
  if (!window_ || !restingPlace_) return;
  const Point moved = window_->screenPoint(location) - *restingPlace_;
  if (!(std::hypot(moved.x, moved.y) <= kPointerSlop)) restingPlace_.reset();
}

void PieMenuWindowController::pointerHovered(std::optional<std::size_t> index) {
  if (highlightState_ && !restingPlace_) highlightState_->setHighlightedIndex(index);
}

void PieMenuWindowController::highlightChanged() {
  if (!window_) return;
  window_->showHighlight();
  auto index = highlightState_->highlightedIndex();
  if (index && *index >= displayed_.items.size()) index.reset();
  announcements_.highlighted(index);
  if (onHoverChanged) onHoverChanged(index ? &displayed_.items[*index] : nullptr);
}

std::optional<PreviewSurroundings> PieMenuWindowController::highlightedSurroundings() const {
  if (!highlightState_ || !highlightState_->highlightedIndex()) return std::nullopt;
  const RingLayout& layout = displayed_.layout;
  const double middle = layout.sectorMiddle(*highlightState_->highlightedIndex());
  const Point center = window_->frame().center();
  return PreviewSurroundings{squareAround(center, layout.outerRadius),
                             center + Point{std::cos(middle), std::sin(middle)} * layout.outerRadius, visibleFrame_};
}

void PieMenuWindowController::advanceRunningAppsSelection() {
  if (!highlightState_ || displayed_.items.empty() || !chordNavigation_.admitsStep(ports_.clock.uptime())) return;
  trace::line("ring: steps");
  idle_.noteInput();
  restingPlace_ = ports_.pointer.location();
  highlightState_->advanceSelection(displayed_.items.size(), hapticFeedbackEnabled());
}

bool PieMenuWindowController::handleKeyEvent(const KeyEvent& event) {
  if (!window_) return false;
  idle_.noteInput();
  if (event.type == KeyEventType::keyDown) return handleKeyDown(event);
  if (event.type == KeyEventType::keyUp) chordNavigation_.keyUp(event);
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
  if (!chordNavigation_.isStep(event)) return false;
  advanceRunningAppsSelection();
  return true;
}

std::optional<std::size_t> PieMenuWindowController::quickSelectIndex(const KeyEvent& event) const {
  if (event.type != KeyEventType::keyDown || event.keyCode == kEscapeKeyCode ||
      chordNavigation_.repeatsOpeningKey(event)) {
    return std::nullopt;
  }
  auto index = displayed_.shortcutLabels.indexForPressedKey(event.charactersIgnoringModifiers);
  if (!index) index = displayed_.shortcutLabels.indexForPressedKey(event.characters);
  if (!index) index = displayed_.shortcutLabels.indexForKeyCode(event.keyCode);
  return index;
}

void PieMenuWindowController::hideWhenIdle(std::function<bool()> isTriggerHeld) {
  using Self = PieMenuWindowController;
  idle_.begin(std::move(isTriggerHeld), weakSelf_.bind([](Self& self) { self.hide(); }));
  modifierMonitor_ =
      ports_.eventMonitors.addLocalMonitor(kFlagsChangedMask, weakSelf_.bind([](Self& self, const KeyEvent&) {
        self.idle_.noteInput();
        return false;
      }));
}

void PieMenuWindowController::scheduleClickModeModifierChordReleaseDismissal(const HotkeyConfig& hotkey,
                                                                             std::function<void()> onReleased) {
  modifierRelease_.arm(hotkey, std::move(onReleased));
}

}  // namespace rondora
