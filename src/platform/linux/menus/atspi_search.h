#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/menus/atspi_objects.h"

namespace rondora::menus {

/// The services of the applications on the accessibility bus by their processes; an application may have several.
/// Nothing when the bus does not answer.
std::optional<std::multimap<std::int32_t, std::string>> accessibleApplications(BusConnection& bus, double seconds);

/// The menu bar of the application's window of that title, else of its active one, else of another.
std::optional<BusObject> findMenuBar(BusConnection& bus, std::int32_t processIdentifier,
                                     const std::vector<std::string>& titles, const Deadline& deadline);

}  // namespace rondora::menus
