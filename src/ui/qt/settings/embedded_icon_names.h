#pragma once

#include <string>
#include <string_view>

namespace rondora {

/// Decompresses a part of the names of icons that are built into the program, for `IconCatalogue`.
std::string embeddedIconNames(std::string_view part);

}  // namespace rondora
