#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "actions/app_launcher.h"
#include "base/uuid.h"
#include "base/weak_self.h"
#include "commands/sub_actions.h"
#include "model/pie_configuration.h"
#include "pie/controller/pie_menu_window_controller.h"
#include "platform/clock.h"
#include "platform/event_monitors.h"
#include "platform/hotkey_service.h"
#include "platform/key_event.h"
#include "platform/main_queue.h"
#include "platform/process_environment.h"
#include "platform/random_source.h"
#include "platform/windows.h"
#include "platform/workspace.h"
#include "running_apps/running_apps_menu_items.h"
#include "storage/config_manager.h"

namespace rondora {

/// Opens the menu that a trigger means, and runs the chosen action on the application that was frontmost before. A
/// hotkey with modifiers is held, tapped to step and released to choose; a plain key is held and released to choose.
/// Main thread.
class MenuSwitchboard {
 public:
  /// Indices of the menus that share the trigger.
  using Candidates = std::vector<std::uint32_t>;

  /// The references must outlive the switchboard.
  struct Services {
    MainQueue& mainQueue;
    const Clock& clock;
    RandomSource& random;
    const ProcessEnvironment& environment;
    Workspace& workspace;
    const EventMonitors& eventMonitors;
    Windows& windows;
    const ConfigManager& config;
    RunningAppsMenuItems& runningAppsMenuItems;
    AppLauncher& appLauncher;
    SubActions& subActions;
    PieMenuWindowController& pieMenuWindow;
    /// The line below a snippet's preview.
    std::function<std::string()> snippetHint;
    /// Called when the action of an item of that menu has worked or failed.
    std::function<void(const PieMenuItem&, const Uuid& menuId, const std::optional<ActionFailure>&)> actionEnded;
    /// Called when a ring has opened.
    std::function<void()> opened;
    /// Called when a ring closed at once because its keys were tapped, not held.
    std::function<void()> tapped;
    /// Called when the user has chosen an item or a command of a ring.
    std::function<void()> chosen;
  };

  explicit MenuSwitchboard(const Services& services);

  /// With latched modifiers the menu stays open: no release chooses.
  void handleHotkeyPressed(const Candidates& candidateIndices, ModifierHold modifiers);
  void handleHotkeyReleased(const Candidates& candidateIndices);
  void handleTrackpadGesture(std::int64_t fingerCount);
  /// Triggers a menu, with or without a hotkey, for another program.
  void handleRequest(const Uuid& menuId);
  /// Closes the menu without a choice.
  void dismiss();
  /// Closes a special menu that has been switched off in the document.
  void dismissRunningAppsMenuIfDisabled();
  /// Runs an item outside of a ring. A keystroke goes to that application, which comes to the front.
  void run(const PieMenuItem& item, const Uuid& menuId, const std::optional<RunningApplication>& target);
  void prefetchAppCommands(const RunningApplication& application);
  /// Pre-renders the menu's picture, so that its first opening is as fast as later ones. Of a menu of commands, the one
  /// for the application in front, if its commands are known.
  void prerender(const PieMenu& menu) const;

  bool isMenuVisible() const { return pieMenuWindow_.isVisible(); }
  /// True when the menu on screen is one of these.
  bool showsOneOf(std::span<const std::uint32_t> menuIndices) const;
  /// True when the key would choose an item of the menu on screen. Allocates nothing.
  bool quickSelects(const KeyEvent& event) const { return pieMenuWindow_.quickSelectIndex(event).has_value(); }

 private:
  struct AppCommandsRequest {
    Uuid token;
    Uuid menuId;
    HotkeyConfig triggerHotkey;
    ModifierHold modifiers;
    RunningApplication application;
  };

  void wirePieMenu();
  const PieConfiguration& configuration() const { return services_.config.current(); }
  std::optional<Uuid> displayedMenu() const;
  std::optional<std::size_t> displayedMenuIndex() const;
  std::optional<std::size_t> resolveMenuIndex(const Candidates& candidates) const;
  bool cancelPendingAppCommands(const Candidates& candidates);

  void rememberFrontmostApplication();
  void togglePieMenu(const PieMenu& menu, const HotkeyConfig& triggerHotkey);
  void stepHighlight();
  /// The items of a menu that is filled at run time; nothing for one whose items the document holds.
  std::optional<std::vector<PieMenuItem>> itemsOverride(const PieMenu& menu) const;
  void show(const PieMenu& menu, const HotkeyConfig& triggerHotkey,
            std::optional<PieMenuWindowController::AppCommands> appCommands);
  void showAppCommands(const PieMenu& menu, const HotkeyConfig& triggerHotkey);
  PieMenuWindowController::AppCommands appCommands(const std::string& bundleIdentifier,
                                                   std::vector<PieSubAction> commands) const;
  void prerenderAppCommands(const PieMenu& menu) const;
  void appCommandsResolved(const AppCommandsRequest& request, std::vector<PieSubAction> commands);
  bool holdsModifiers(const HotkeyConfig& hotkey) const;
  bool holdsAnyKeyOf(const HotkeyConfig& trigger) const;
  void armModifierReleaseDismissal(const HotkeyConfig& hotkey);
  void handleClickModeModifierChordReleased();

  void trigger(const PieMenu& menu, const HotkeyConfig& triggerHotkey);
  void restorePreviousApp();
  void closeAndRestore();
  void restoreAndExecute(const PieMenuItem& item);
  void execute(const PieMenuItem& item, const Uuid& menuId, std::optional<std::int32_t> targetPID);
  /// True when the item is a running application that quit while its menu was open.
  bool hasQuit(const PieMenuItem& item) const;
  void perform(const PieSubAction& command);
  void updateSnippetPreview(const PieMenuItem* item);
  void hideSnippetPreview();

  Services services_;
  PieMenuWindowController& pieMenuWindow_;
  std::unique_ptr<SnippetPreviewPopover> snippetPreviewPopover_;
  /// The menu on screen, or the last one that was.
  Uuid lastShown_;
  bool showsRunningApps_ = false;
  double shownAt_ = 0;  // clock's uptime
  /// Of the latest hotkey.
  ModifierHold triggerModifiers_ = ModifierHold::held;
  /// The application in front when the menu opened; restored or forgotten exactly once.
  std::optional<RunningApplication> previousApp_;
  /// The application whose commands are on screen.
  std::optional<RunningApplication> commandsShownOf_;
  /// The one pending request for an application's commands that may open a menu.
  std::optional<Uuid> pendingAppCommandsToken_;
  WeakSelf<MenuSwitchboard> weakSelf_{this};
};

}  // namespace rondora
