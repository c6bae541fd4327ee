#pragma once

#include <vector>

#include "commands/app_menu_catalog.h"
#include "model/app_sub_menu.h"

namespace rondora {

/// A set for an application with these menu commands, the same each time; empty when none of them has a key equivalent,
/// which tells that the application's authors expect it to be used often.
///
/// First, up to eight menu commands. Those whose key equivalent is a common one come before others, and of two such the
/// one that is used more often. They are spread over the menus: each menu of the menu bar gives its best command, then
/// each its second best, and so on. Commands that quit the application or use the clipboard are left out, since the
/// first must not be hit by mistake and the hand that makes a selection has the keys of the others at hand. Neighbours
/// in the ring are neighbours in the menus.
///
/// Then four placements of the window, so that the ring has no more sectors than are easily hit.
std::vector<AppSubMenuEntry> suggestedCommands(const std::vector<AppMenuCatalog::Command>& commands);

}  // namespace rondora
