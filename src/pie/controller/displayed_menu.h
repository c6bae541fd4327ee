#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/uuid.h"
#include "model/pie_menu.h"
#include "model/pie_sub_action.h"
#include "pie/geometry/ring_layout.h"
#include "pie/labels/quick_select.h"

namespace rondora {

/// The commands of the target application, in ring order.
struct AppCommands {
  std::vector<PieSubAction> commands;
  /// One per command: how its sector looks.
  std::vector<PieMenuItem> items;
  /// Replaces the menu's own rotation.
  std::optional<double> rotationDegrees;
  /// The target application's identifier; the hub shows its icon.
  std::optional<std::string> application = std::nullopt;
};

/// A menu as one showing presents it. The pre-rendered picture and the one on screen are both made from it, so that
/// they are equal.
struct DisplayedMenu {
  std::optional<Uuid> menuId;
  PieMenuKind kind = PieMenuKind::standard;
  /// In ring order.
  std::vector<PieMenuItem> items;
  /// Of an application-commands menu: the command behind each item.
  std::optional<std::vector<PieSubAction>> commands;
  ShortcutLabels shortcutLabels;
  RingLayout layout;
  /// As in `AppCommands`.
  std::optional<std::string> application;
  /// As in `HubContents`; pre-rendered pictures are of whole hubs.
  Point visibleSide = {};

  /// `itemsOverride` replaces the menu's items, `appCommands` replaces both. `maxRadius` is in points.
  static DisplayedMenu make(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                            std::optional<AppCommands> appCommands, double maxRadius);
};

}  // namespace rondora
