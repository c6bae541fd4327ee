#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/app_sub_menu.h"

namespace rondora {

/// The key equivalent of a menu command.
struct MenuShortcut {
  std::string character;
  /// Bit 0 shift, bit 1 option, bit 2 control, bit 3 set when command is not part of it.
  std::int64_t modifiers = 0;
  friend bool operator==(const MenuShortcut&, const MenuShortcut&) = default;
};

/// One command of an application-commands menu, made at run time and never stored.
struct PieSubAction {
  std::string title;
  std::string icon;
  AppSubMenuEntry::Kind kind = AppSubMenuEntry::Kind::menuItem;
  std::vector<std::string> menuPath;
  /// As the document stores it; finds a command that has moved.
  std::optional<MenuShortcut> shortcut;
  /// Shown beneath the title: the key equivalent that the command has now, or why it is not available. May be empty.
  std::string note = {};
  /// False for a command that the application does not have or does not allow now.
  bool isAvailable = true;
  friend bool operator==(const PieSubAction&, const PieSubAction&) = default;
};

}  // namespace rondora
