#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/observable.h"
#include "base/uuid.h"
#include "base/weak_self.h"
#include "model/hotkey_config.h"
#include "model/pie_menu.h"
#include "pie/controller/pie_menu_highlight_state.h"
#include "pie/controller/pie_menu_selection.h"
#include "pie/controller/preview_place.h"
#include "pie/controller/quick_select.h"
#include "platform/clock.h"
#include "platform/event_monitors.h"
#include "platform/haptics.h"
#include "platform/key_event.h"
#include "platform/main_queue.h"
#include "platform/overlay_panel.h"
#include "platform/pointer.h"
#include "platform/screens.h"

namespace rondora {

class PieView;

/// The overlay in which a menu is shown: its panel, its keys, its highlight and the watch on the trigger's modifiers.
/// Reports what was chosen and runs nothing; whoever it reports to hides it first. Main thread.
class PieMenuWindowController {
 public:
  struct Ports {
    OverlayPanels& overlayPanels;
    Screens& screens;
    Pointer& pointer;
    Haptics& haptics;
    EventMonitors& eventMonitors;
    MainQueue& mainQueue;
    Clock& clock;
  };

  /// What comes from elsewhere; either may be empty.
  struct Environment {
    std::function<bool()> hapticFeedbackEnabled;  // empty: on
    /// The title that a sector shows; empty: the item's own.
    std::function<std::string(const PieMenuItem&)> displayTitle;
  };

  /// The commands of the target application, in ring order.
  struct AppCommands {
    std::vector<PieSubAction> commands;
    /// One a command: how its sector looks.
    std::vector<PieMenuItem> items;
    /// Takes the place of the menu's own rotation.
    std::optional<double> rotationDegrees;
    /// The target application's identifier; its icon stands in the hub.
    std::optional<std::string> application = std::nullopt;
  };

  PieMenuWindowController(const Ports& ports, Environment environment);
  ~PieMenuWindowController();
  PieMenuWindowController(const PieMenuWindowController&) = delete;
  PieMenuWindowController& operator=(const PieMenuWindowController&) = delete;

  /// Replaces what is shown, without `onHide`.
  void show(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
            std::optional<HotkeyConfig> navigationHotkeyForChordRepeat, std::optional<AppCommands> appCommands);
  /// Makes the first `show` of the menu as quick as the later ones.
  void warmUp(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride) const;
  /// Does nothing when nothing is shown.
  void hide();
  bool isVisible() const;

  std::optional<PieMenuSelection> currentSelection() const;
  const std::optional<Uuid>& displayedMenuId() const { return displayedMenuId_; }
  /// Around the item that `onHoverChanged` named last; nothing while none is hovered.
  std::optional<PreviewSurroundings> hoveredSurroundings() const;
  /// Where the pointer was when the last `show` ended: beside the ring's centre after a quick flick.
  Point showMouseLocation() const { return showMouseLocation_; }
  /// Moves the highlight one sector on; steps less than 0.018 s apart count as one.
  void advanceRunningAppsSelection();

  /// Calls `onReleased` once the modifiers of `hotkey` are no longer all held, at once when that is so already.
  /// Without modifiers nothing is armed. Ends with the showing.
  void scheduleClickModeModifierChordReleaseDismissal(const HotkeyConfig& hotkey, std::function<void()> onReleased);

  /// True when the event was consumed.
  bool handleKeyEvent(const KeyEvent& event);
  /// The displayed item that this key-down would choose. Allocates nothing.
  std::optional<std::size_t> quickSelectIndex(const KeyEvent& event) const;

  const std::optional<HotkeyConfig>& chordNavigationHotkey() const { return chordNavigationHotkey_; }
  /// True until the key that opened the menu has gone up once.
  bool chordNavigationIgnoreUntilMainKeyUp() const { return chordNavigationIgnoreUntilMainKeyUp_; }
  void clearChordNavigationIgnoreUntilMainKeyUp() { chordNavigationIgnoreUntilMainKeyUp_ = false; }

  std::function<void(const PieMenuItem&)> onItemSelected;
  std::function<void(const PieSubAction&)> onCommandSelected;
  /// Null when no item is hovered any more.
  std::function<void(const PieMenuItem*)> onHoverChanged;
  std::function<void()> onHide;

 private:
  void chooseSectors(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                     std::optional<AppCommands> appCommands);
  void makePanel(const PieMenu& menu, double rotationDegrees, std::optional<std::string> application);
  void wireView();
  std::vector<std::string> displayTitles(const std::vector<PieMenuItem>& items) const;
  void installMonitors();
  bool handleKeyDown(const KeyEvent& event);
  bool repeatsOpeningKey(const KeyEvent& event) const;
  bool isChordNavigationKey(const KeyEvent& event) const;
  void selectDisplayed(std::size_t index);
  void pointerAt(Point location);
  void pointerHovered(std::optional<std::size_t> index);
  void installReleaseMonitors(std::uint64_t requiredFlags, std::function<void()> onReleased);
  void tearDown();
  bool hapticFeedbackEnabled() const;

  Ports ports_;
  Environment environment_;
  std::unique_ptr<PieView> window_;
  Subscription localMonitor_;
  Subscription screenParamsObserver_;
  std::vector<Subscription> modifierChordReleaseMonitors_;
  Subscription modifierChordReleaseWorkItem_;
  std::optional<HotkeyConfig> chordNavigationHotkey_;
  bool chordNavigationIgnoreUntilMainKeyUp_ = false;
  double lastChordAdvanceUptime_ = 0;
  std::unique_ptr<PieMenuHighlightState> highlightState_;
  std::vector<PieMenuItem> displayedItems_;
  std::optional<std::vector<PieSubAction>> displayedCommands_;
  ShortcutLabels displayedShortcutLabels_;
  std::optional<Uuid> displayedMenuId_;
  Point showMouseLocation_;
  /// Where the overlay opened or the highlight was stepped last, until the pointer leaves it: meanwhile the pointer
  /// does not touch the highlight.
  std::optional<Point> restingPlace_;
  std::optional<std::size_t> hoveredIndex_;
  /// Usable part of the screen that the panel was made for.
  Rect visibleFrame_;
  WeakSelf<PieMenuWindowController> weakSelf_{this};
};

}  // namespace rondora
