#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "input/hotkeys/hotkey_display.h"
#include "input/hotkeys/hotkey_manager.h"
#include "model/app_language.h"
#include "model/menu_name.h"
#include "model/pie_menu.h"
#include "platform/instance_channel.h"

// The menus as users and other programs name them.

namespace rondora {

/// The first of `menus` with the same hotkey, which opens instead of the others: `menu` itself where it is the first.
const PieMenu& firstWithHotkeyOf(const PieMenu& menu, const std::vector<PieMenu>& menus);

/// Its hotkey opens the menu, one of `menus`: it is switched on, the first with this hotkey, registered or served by
/// the event tap, and can be typed.
bool opensWithHotkey(const PieMenu& menu, const std::vector<PieMenu>& menus, const HotkeyManager& hotkeys);

/// All menus in their order. Null `hotkeys`: none is registered yet.
std::vector<MenuListing> listMenus(const std::vector<PieMenu>& menus, const HotkeyManager* hotkeys,
                                   AppLanguage language, const ModifierNames& modifierNames);

/// A line for each menu that its hotkey opens, a dozen at most: "Main: Ctrl + Alt + Space".
std::string workingHotkeys(const std::vector<PieMenu>& menus, const HotkeyManager& hotkeys, AppLanguage language,
                           const ModifierNames& modifierNames);

struct MenuToTrigger {
  TriggerReply reply = TriggerReply::unknown;
  /// Null unless it opens.
  const PieMenu* menu = nullptr;
};
MenuToTrigger menuToTrigger(const std::vector<PieMenu>& menus, std::string_view idOrName);

}  // namespace rondora
