#pragma once

#include <optional>
#include <string_view>

#include "model/pie_sub_action.h"

namespace rondora {

/// The symbol for a menu command, whose title may be in any language: that of the action that applications bind to this
/// key equivalent by convention, otherwise a general one.
std::string_view commandSymbol(const std::optional<MenuShortcut>& shortcut);

}  // namespace rondora
