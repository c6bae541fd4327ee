#pragma once

#include <vector>

#include "platform/macos/conversions/property_list.h"
#include "platform/spaces.h"

namespace rondora::macos {

/// The window server's list of displays with their spaces; what is no list has none.
std::vector<DisplaySpaces> displaySpaces(const PropertyList& displays);

}  // namespace rondora::macos
