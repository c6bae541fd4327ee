#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "model/app_language.h"
#include "model/app_sub_menu.h"
#include "model/pie_menu.h"
#include "platform/clock.h"

namespace rondora {

/// 0001-01-01 00:00:00 UTC.
inline constexpr WallTime kDistantPast = -63114076800.0;

inline constexpr std::int64_t kCurrentSchemaVersion = 3;

/// The whole user configuration: a value, copied and compared whole.
struct PieConfiguration {
  std::int64_t schemaVersion = kCurrentSchemaVersion;
  std::vector<PieMenu> menus;
  AppLanguage language = AppLanguage::english;
  bool hapticFeedbackEnabled = true;
  std::vector<AppSubMenu> appSubMenus;
  WallTime lastModified = kDistantPast;
  friend bool operator==(const PieConfiguration&, const PieConfiguration&) = default;

  /// The first-run document, with fresh ids.
  static PieConfiguration defaultConfig(RandomSource& random);
  /// A new menu of that kind as it looks, without id, name and entries.
  static PieMenu templateLooks(PieMenuKind kind);
  static PieMenu templateRunningAppsMenu(RandomSource& random);
  static PieMenu templateAppCommandsMenu(RandomSource& random);

  /// The menu with this id, or null.
  const PieMenu* menu(const Uuid& id) const;
  /// An item of a menu has this action.
  bool hasItem(const MenuAction& action) const;
  /// Maps finger count to index into `menus`, for the enabled menus.
  std::map<std::int64_t, std::size_t> trackpadGestureTargets() const;
  /// Moves the finger count to the menu; a count other than 3, 4 or 5 clears the menu's.
  void assignTrackpadFingerCount(std::int64_t count, const Uuid& menuId);
  /// The first set for the application, or null.
  const AppSubMenu* appSubMenu(std::string_view bundleIdentifier) const;
  /// The entries for an application: those of its set, otherwise the default ones.
  std::vector<AppSubMenuEntry> commandEntries(std::string_view bundleIdentifier, RandomSource& random) const;
  /// The default entries of the application-commands menu; the built-ins if there are none.
  std::vector<AppSubMenuEntry> defaultAppCommands(RandomSource& random) const;
};

}  // namespace rondora
