#pragma once

#include <string>

#include "model/pie_menu.h"

namespace rondora {

/// The name as a line of text that keeps its own direction; shortened if it is very long.
std::string displayName(const PieMenu& menu);

}  // namespace rondora
