#pragma once

#include <variant>

#include "model/pie_menu_item.h"
#include "model/pie_sub_action.h"

namespace rondora {

/// What is under the highlight: an item, or a command of an application-commands menu.
using PieMenuSelection = std::variant<PieMenuItem, PieSubAction>;

}  // namespace rondora
