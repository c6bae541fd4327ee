#pragma once

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

/// One ring with its trigger, items and looks. Lengths are points.
struct PieMenu {
  Uuid id;
  std::string name;
  HotkeyConfig hotkey;
  std::vector<PieMenuItem> items;
  PieMenuKind kind = PieMenuKind::standard;
  std::vector<std::string> runningAppsExcludedBundleIds;
  /// On/off switch of both special kinds.
  bool runningAppsMenuEnabled = true;
  /// 3, 4 or 5; anything else is no finger count.
  std::int64_t trackpadFingerCount = 0;
  double menuRadius = 150;
  double innerRadius = 76;
  /// Where an icon sits between the inner radius (0) and the outer one (1).
  double iconDistance = 0.5;
  double iconSize = 42;
  double appearanceScale = 1;
  double rotationDegrees = 0;
  LiquidGlassSettings liquidGlass;
  double animationDuration = 0.2;  // seconds
  bool pawDecorationEnabled = true;
  double pawSizeScale = 0.8;
  double pawRadialInset = 0.5;
  double centerCatScale = 0.75;
  double centerAppIconScale = 0.4;
  std::vector<AppSubMenuEntry> appCommandsDefaultEntries;
  double shortcutDigitSizeScale = 0.23;
  double shortcutDigitInsetLeftScale = 0.29;
  double shortcutDigitInsetRightScale = 0.35;
  double shortcutDigitOpacity = 0.29;
  std::string shortcutDigitColorHex = "#FFFFFF";
  std::optional<std::string> globalSidebarIconColorHex;
  friend bool operator==(const PieMenu&, const PieMenu&) = default;

  /// A standard menu, or a special one that is switched on.
  bool isEnabled() const { return kind == PieMenuKind::standard || runningAppsMenuEnabled; }
  /// Has a hotkey that is to be live.
  bool hasLiveHotkey() const { return hotkey.isAssigned() && isEnabled(); }

  /// The ring is at least 22 points wide and its hub at least 12.
  static double clampedInnerRadius(double innerRadius, double menuRadius);
  /// Where icons sit in a menu that does not say.
  static double defaultIconDistance(double innerRadius, double menuRadius);

  void applySharedVisualSettings(const PieMenu& source);

  /// Drops later occurrences, compared without regard to case.
  static std::vector<std::string> deduplicatedRunningAppsExcludedBundleIds(const std::vector<std::string>& ids);
  /// Empty unless the kind is appCommands; there an empty list becomes the built-in entries.
  static std::vector<AppSubMenuEntry> resolvedAppCommandsDefaultEntries(std::vector<AppSubMenuEntry> entries,
                                                                        PieMenuKind kind, RandomSource& random);
};

}  // namespace rondora
