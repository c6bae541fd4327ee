#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/uuid.h"
#include "platform/random_source.h"

namespace rondora {

/// One command of an application-commands menu, as the document stores it.
struct AppSubMenuEntry {
  enum class Kind {
    menuItem,
    hideApp,
    minimizeWindow,
    toggleFullScreen,
    tileLeft,
    tileRight,
    tileTop,
    tileBottom,
    fillScreen,
    centerWindow,
    closeWindow,
    quitApp,
  };

  Uuid id;
  Kind kind = Kind::menuItem;
  /// Menu titles from the menu-bar title down to the command.
  std::vector<std::string> menuPath;
  std::optional<std::string> shortcutCharacter;
  std::optional<std::int64_t> shortcutModifiers;
  std::optional<std::string> icon;
  friend bool operator==(const AppSubMenuEntry&, const AppSubMenuEntry&) = default;

  /// The entries of an application without a set of its own, with fresh ids.
  static std::vector<AppSubMenuEntry> automaticBuiltIns(RandomSource& random);
};

std::string_view rawValue(AppSubMenuEntry::Kind kind);
std::optional<AppSubMenuEntry::Kind> appSubMenuEntryKindFromRawValue(std::string_view raw);

/// The commands that the application-commands menu offers while one application is frontmost.
struct AppSubMenu {
  std::string bundleIdentifier;
  std::vector<AppSubMenuEntry> entries;
  std::optional<double> rotationDegrees;
  friend bool operator==(const AppSubMenu&, const AppSubMenu&) = default;
};

}  // namespace rondora
