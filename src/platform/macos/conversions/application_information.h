#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/application_directory.h"
#include "platform/macos/conversions/property_list.h"

namespace rondora::macos {

/// The application that has this information in its bundle; nothing for one without an identifier and for one that
/// only works in the background, which the user does not start.
std::optional<StartableApplication> startableApplication(const PropertyList& information, std::string name);

/// A bundle's file name without its ending, which the system shows to users who want to see endings.
std::string withoutBundleEnding(std::string name);

}  // namespace rondora::macos
