#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "base/uuid.h"
#include "model/menu_action.h"
#include "model/palette.h"
#include "platform/random_source.h"

namespace rondora {

/// One sector of a ring.
struct PieMenuItem {
  Uuid id;
  std::string title;
  /// Symbol name, emoji or other icon reference (icons/icon_reference.h).
  std::string icon;
  MenuAction action;
  std::string color = std::string(kDefaultItemColor);
  std::optional<std::string> iconColor;
  std::int64_t sectorIndex = 0;
  std::optional<std::string> customShortcut;
  friend bool operator==(const PieMenuItem&, const PieMenuItem&) = default;

  /// One ASCII letter or digit in upper case, with surrounding blanks trimmed; nullopt for anything else.
  static std::optional<std::string> normalizedCustomShortcut(const std::optional<std::string>& text);

  /// A random symbol of `kUnassignedSymbols` for an item without an action: uniform among those not in `avoiding`, or
  /// among all if none is left.
  static std::string randomUnassignedSymbol(const std::set<std::string, std::less<>>& avoiding, RandomSource& random);

  static const std::array<std::string_view, 49> kUnassignedSymbols;
};

}  // namespace rondora
