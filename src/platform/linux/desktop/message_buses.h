#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/linux/desktop/bus_probe.h"

namespace rondora::desktop {

/// From now on the libraries find no such bus in this process: they would wait for a bus that hangs. Launched
/// applications get the session's own value. Before the libraries use the bus, on the main thread.
void hideBus(MessageBus bus);

/// Undoes `hideBus`.
void showBuses();

/// The environment variables that `hideBus` replaced, with the session's own values; nothing for one that was not set.
const std::map<std::string, std::optional<std::string>>& hiddenBuses();

}  // namespace rondora::desktop
