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
#include "pie/controller/chord_navigation.h"
#include "pie/controller/displayed_menu.h"
#include "pie/controller/idle_watch.h"
#include "pie/controller/modifier_release_watch.h"
#include "pie/controller/pie_menu_highlight_state.h"
#include "pie/controller/pie_menu_selection.h"
#include "pie/controller/preview_place.h"
#include "pie/controller/ring_announcements.h"
#include "platform/announcer.h"
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
/// Reports what was chosen and runs nothing; the receiver hides it before it acts. Main thread.
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
    Announcer& announcer;
  };

  /// Every function may be empty.
  struct Environment {
    std::function<bool()> hapticFeedbackEnabled;  // empty: on
    /// The title that the hub shows for an item; empty: the item's own.
    std::function<std::string(const PieMenuItem&)> displayTitle;
    /// Whether an item of a standard menu can do what it is for; the others are dimmed. Empty: all can.
    std::function<bool(const PieMenuItem&)> isAvailable = {};
    /// What the hub says of a menu without items; empty: the menu's name.
    std::function<std::string()> emptyMenuText = {};
    /// What is announced of a highlighted item; empty: its title.
    std::function<std::string(const SpokenItem&)> spokenItem = {};
  };

  using AppCommands = rondora::AppCommands;

  PieMenuWindowController(const Ports& ports, Environment environment);
  ~PieMenuWindowController();
  PieMenuWindowController(const PieMenuWindowController&) = delete;
  PieMenuWindowController& operator=(const PieMenuWindowController&) = delete;

  /// Replaces a menu that is shown, without `onHide`.
  void show(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
            std::optional<HotkeyConfig> navigationHotkeyForChordRepeat, std::optional<AppCommands> appCommands);
  /// Pre-renders the menu's picture for its first `show`.
  void prerender(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                 std::optional<AppCommands> appCommands) const;
  /// A menu as `show` would present it, for the settings.
  struct Preview {
    DisplayedMenu displayed;
    Picture picture;
  };
  Preview preview(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                  std::optional<AppCommands> appCommands, double maxRadius) const;
  /// Icons may have been decoded: shows those of the menu on screen.
  void refreshIcons();
  /// Does nothing when nothing is shown.
  void hide();
  bool isVisible() const;

  std::optional<PieMenuSelection> currentSelection() const;
  const std::optional<Uuid>& displayedMenuId() const { return displayed_.menuId; }
  /// Around the highlighted sector; nothing while none is highlighted.
  std::optional<PreviewSurroundings> highlightedSurroundings() const;
  /// The pointer's location when the last `show` ended; a quick flick moves it away from the ring's centre.
  Point showMouseLocation() const { return showMouseLocation_; }
  /// Moves the highlight one sector on; steps less than 0.018 s apart count as one.
  void advanceRunningAppsSelection();

  /// Calls `onReleased` when the modifiers of `hotkey` are no longer all held (see ModifierReleaseWatch). `hide` and
  /// `show` disarm it.
  void scheduleClickModeModifierChordReleaseDismissal(const HotkeyConfig& hotkey, std::function<void()> onReleased);

  /// Hides the menu after IdleWatch::kMaxIdleSeconds without input; a held trigger counts as input.
  void hideWhenIdle(std::function<bool()> isTriggerHeld);

  /// True when the event was consumed.
  bool handleKeyEvent(const KeyEvent& event);
  /// The displayed item that this key-down would choose. Allocates nothing.
  std::optional<std::size_t> quickSelectIndex(const KeyEvent& event) const;

  const std::optional<HotkeyConfig>& chordNavigationHotkey() const { return chordNavigation_.hotkey(); }
  /// True until the key that opened the menu has gone up once.
  bool chordNavigationIgnoreUntilMainKeyUp() const { return chordNavigation_.ignoresUntilMainKeyUp(); }
  void clearChordNavigationIgnoreUntilMainKeyUp() { chordNavigation_.clearIgnoreUntilMainKeyUp(); }

  std::function<void(const PieMenuItem&)> onItemSelected;
  std::function<void(const PieSubAction&)> onCommandSelected;
  /// The highlighted item changed, by pointer or by key; null for none.
  std::function<void(const PieMenuItem*)> onHoverChanged;
  std::function<void()> onHide;

 private:
  Picture picture(const PieMenu& menu, const DisplayedMenu& displayed) const;
  std::vector<std::string> displayTitles(const std::vector<PieMenuItem>& items) const;
  std::string displayTitle(const PieMenuItem& item) const;
  std::vector<bool> dimmedItems(const DisplayedMenu& displayed) const;
  bool isAvailable(const DisplayedMenu& displayed, std::size_t index) const;
  void announceOpening(const PieMenu& menu);
  std::string spokenItem(std::size_t index) const;
  void makePanel(const PieMenu& menu, Point center);
  void wireView();
  void installMonitors();
  bool handleKeyDown(const KeyEvent& event);
  void selectDisplayed(std::size_t index);
  void pointerAt(Point location);
  void pointerHovered(std::optional<std::size_t> index);
  void highlightChanged();
  void tearDown();
  bool hapticFeedbackEnabled() const;

  Ports ports_;
  Environment environment_;
  DisplayedMenu displayed_;
  std::unique_ptr<PieMenuHighlightState> highlightState_;
  std::unique_ptr<PieView> window_;
  Subscription localMonitor_;
  Subscription modifierMonitor_;
  Subscription screenParamsObserver_;
  ModifierReleaseWatch modifierRelease_;
  IdleWatch idle_;
  ChordNavigation chordNavigation_;
  RingAnnouncements announcements_;
  Point showMouseLocation_;
  /// Where the menu opened or the highlight was last stepped. The pointer does not set the highlight until it leaves
  /// this place.
  std::optional<Point> restingPlace_;
  /// Usable part of the panel's screen.
  Rect visibleFrame_;
  WeakSelf<PieMenuWindowController> weakSelf_{this};
};

}  // namespace rondora
