#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>

#include "platform/process_environment.h"

namespace rondora::desktop {

enum class MessageBus { session, system };

/// A bus that works answers much sooner.
inline constexpr std::chrono::seconds kMaxBusSilence{2};

/// Whether the bus lets a client in within `limit`. True also when it refuses at once, and for an address that only the
/// libraries can judge: without one for the session they may start a bus. Blocks for `limit` at most; any thread.
bool doesBusAnswer(MessageBus bus, const ProcessEnvironment& environment, std::chrono::milliseconds limit);

/// From now on the libraries find no such bus in this process: they would wait for a bus that hangs. Launched
/// applications get the session's own value. Before the libraries use the bus, on the main thread.
void hideBus(MessageBus bus);

/// Undoes `hideBus`.
void showBuses();

/// The environment variables that `hideBus` replaced, with the session's own values; nothing for one that was not set.
const std::map<std::string, std::optional<std::string>>& hiddenBuses();

}  // namespace rondora::desktop
