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
  std::int64_t modifiers = 0;
  friend bool operator==(const MenuShortcut&, const MenuShortcut&) = default;
};

/// One command of an application-commands menu, made at run time and never stored.
struct PieSubAction {
  std::string title;
  std::string icon;
  AppSubMenuEntry::Kind kind = AppSubMenuEntry::Kind::menuItem;
  std::vector<std::string> menuPath;
  std::optional<MenuShortcut> shortcut;
  friend bool operator==(const PieSubAction&, const PieSubAction&) = default;
};

}  // namespace rondora
