#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/app_services.h"
#include "base/uuid.h"
#include "base/weak_self.h"
#include "model/pie_configuration.h"
#include "pie/controller/pie_menu_window_controller.h"
#include "platform/key_event.h"

namespace rondora {

/// From a trigger to a menu on screen, and from what was chosen there to the application that was in front before.
/// A hotkey with modifiers is held, tapped to step and let go to choose; a plain key is held and let go to choose.
/// Main thread.
class MenuSwitchboard {
 public:
  /// Positions of menus that share the trigger.
  using Candidates = std::vector<std::uint32_t>;

  /// `services` outlives the switchboard.
  explicit MenuSwitchboard(const AppServices& services);

  void handleHotkeyPressed(const Candidates& candidateIndices);
  void handleHotkeyReleased(const Candidates& candidateIndices);
  void handleTrackpadGesture(std::int64_t fingerCount);
  /// Somebody who owns the keys asks for a menu, which may have no hotkey of its own.
  void handleRequest(const Uuid& menuId);
  /// Closes a special menu that `configuration` has switched off.
  void dismissRunningAppsMenuIfDisabled(const PieConfiguration& configuration);
  void prefetchAppCommands(const RunningApplication& application);
  /// Makes the menu's first opening as quick as the later ones.
  void warmUp(const PieMenu& menu) const;

  bool isMenuVisible() const { return pieMenuWindow_->isVisible(); }
  /// The menu on screen is one of these.
  bool showsOneOf(std::span<const std::uint32_t> menuIndices) const;
  /// The key would choose an item of the menu on screen. Allocates nothing.
  bool quickSelects(const KeyEvent& event) const { return pieMenuWindow_->quickSelectIndex(event).has_value(); }

 private:
  struct AppCommandsRequest {
    Uuid token;
    PieMenu menu;
    HotkeyConfig triggerHotkey;
    std::string bundleIdentifier;
  };

  void setupPieMenu();
  const PieConfiguration& configuration() const { return services_.configManager.current(); }
  std::optional<std::size_t> displayedMenuIndex(const std::vector<PieMenu>& menus) const;
  std::optional<std::size_t> resolveMenuIndex(const Candidates& candidates, const std::vector<PieMenu>& menus) const;
  bool cancelPendingAppCommands(const Candidates& candidates);

  void rememberFrontmostApplication();
  void togglePieMenu(const PieMenu& menu, const HotkeyConfig& triggerHotkey);
  void stepHighlight();
  /// The sectors of a menu that fills them by itself; nothing for one that holds them.
  std::optional<std::vector<PieMenuItem>> itemsOverride(const PieMenu& menu) const;
  void show(const PieMenu& menu, const HotkeyConfig& triggerHotkey,
            std::optional<PieMenuWindowController::AppCommands> appCommands);
  void showAppCommands(const PieMenu& menu, const HotkeyConfig& triggerHotkey);
  void appCommandsResolved(const AppCommandsRequest& request, std::vector<PieSubAction> commands);
  bool holdsModifiers(const HotkeyConfig& hotkey) const;
  void armModifierReleaseDismissal(const HotkeyConfig& hotkey);
  void handleClickModeModifierChordReleased();

  void restorePreviousApp();
  void closeAndRestore();
  void restoreAndExecute(const PieMenuItem& item);
  /// The item stands for a running application that has ended while its menu was open.
  bool hasQuit(const PieMenuItem& item) const;
  void perform(const PieSubAction& command);
  void updateSnippetPreview(const PieMenuItem* item);
  void hideSnippetPreview();

  const AppServices& services_;
  std::unique_ptr<PieMenuWindowController> pieMenuWindow_;
  std::unique_ptr<SnippetPreviewPopover> snippetPreviewPopover_;
  bool showsRunningApps_ = false;
  /// In front when the menu was opened; given back or forgotten exactly once.
  std::optional<RunningApplication> previousApp_;
  /// The one request for an application's commands that may still show something.
  std::optional<Uuid> pendingAppCommandsToken_;
  WeakSelf<MenuSwitchboard> weakSelf_{this};
};

}  // namespace rondora
