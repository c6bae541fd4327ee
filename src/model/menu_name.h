#pragma once

#include <string>

#include "model/pie_menu.h"

namespace rondora {

/// The name as a line of text; shortened if it is very long.
std::string listedName(const PieMenu& menu);
/// The same within other text: it keeps its own direction.
std::string displayName(const PieMenu& menu);

}  // namespace rondora
