#pragma once

#include <vector>

#include "base/uuid.h"
#include "model/pie_menu_item.h"
#include "model/pie_sub_action.h"

namespace rondora {

/// The sectors of an application-commands menu.
struct AppCommandsMenuItems {
  /// The same command has the same id at every start, whatever its title, icon and availability are.
  static Uuid stableID(const PieSubAction& command);
  /// One item per command, in the same order, coloured by position.
  static std::vector<PieMenuItem> build(const std::vector<PieSubAction>& commands);
};

}  // namespace rondora
