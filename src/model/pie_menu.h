#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/uuid.h"
#include "model/app_sub_menu.h"
#include "model/hotkey_config.h"
#include "model/liquid_glass_settings.h"
#include "model/pie_menu_item.h"
#include "model/pie_menu_kind.h"

namespace rondora {

/// The numbers of fingers whose tap can open a menu.
inline constexpr std::array<std::int64_t, 3> kFingerCounts = {3, 4, 5};

constexpr bool isFingerCount(std::int64_t count) {
  return count >= kFingerCounts.front() && count <= kFingerCounts.back();
}

/// A menu: its trigger, items and appearance. Lengths are points.
struct PieMenu {
  static constexpr double kMinRingWidth = 22;
  static constexpr double kMinInnerRadius = 12;

  /// Sets the default appearance.
  PieMenu();

  Uuid id;
  std::string name;
  HotkeyConfig hotkey;
  std::vector<PieMenuItem> items;
  PieMenuKind kind = PieMenuKind::standard;
  std::vector<std::string> runningAppsExcludedBundleIds;
  /// On/off switch of both special kinds.
  bool runningAppsMenuEnabled = true;
  /// One of kFingerCounts; other values mean none.
  std::int64_t trackpadFingerCount = 0;
  // Appearance, with the defaults and ranges of model/appearance_fields.h.
  double menuRadius = 0;
  double innerRadius = 0;
  /// Place of an icon's centre: 0 is the inner radius, 1 the outer one.
  double iconDistance = 0;
  double iconSize = 0;
  double appearanceScale = 0;
  double rotationDegrees = 0;
  LiquidGlassSettings liquidGlass;
  double animationDuration = 0;  // seconds
  bool pawDecorationEnabled = true;
  double pawSizeScale = 0;
  double pawRadialInset = 0;
  double centerCatScale = 0;
  double centerAppIconScale = 0;
  std::vector<AppSubMenuEntry> appCommandsDefaultEntries;
  double shortcutDigitSizeScale = 0;
  double shortcutDigitInsetLeftScale = 0;
  double shortcutDigitInsetRightScale = 0;
  double shortcutDigitOpacity = 0;
  std::string shortcutDigitColorHex = "#FFFFFF";
  std::optional<std::string> globalSidebarIconColorHex;
  friend bool operator==(const PieMenu&, const PieMenu&) = default;

  /// A standard menu, or a special one that is switched on.
  bool isEnabled() const { return kind == PieMenuKind::standard || runningAppsMenuEnabled; }
  /// Enabled, with a hotkey.
  bool hasLiveHotkey() const { return hotkey.isAssigned() && isEnabled(); }

  /// Leaves a ring of at least `kMinRingWidth` where the menu is large enough.
  static double clampedInnerRadius(double innerRadius, double menuRadius);
  /// The default for these radii.
  static double defaultIconDistance(double innerRadius, double menuRadius);

  /// Copies the appearance fields that menus share.
  void applySharedVisualSettings(const PieMenu& source);

  /// Drops later occurrences, ignoring case.
  static std::vector<std::string> deduplicatedRunningAppsExcludedBundleIds(const std::vector<std::string>& ids);
  /// Empty unless the kind is appCommands; there an empty list becomes the built-in entries.
  static std::vector<AppSubMenuEntry> resolvedAppCommandsDefaultEntries(std::vector<AppSubMenuEntry> entries,
                                                                        PieMenuKind kind, RandomSource& random);
};

}  // namespace rondora
