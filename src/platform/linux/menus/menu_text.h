#pragma once

#include <string>
#include <string_view>

namespace rondora::menus {

/// The title of a label with mnemonics: "_File" is "File", "a__b" is "a_b".
std::string titleOfLabel(std::string_view label);

}  // namespace rondora::menus
