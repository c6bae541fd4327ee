#pragma once

#include <chrono>

#include "platform/process_environment.h"

namespace rondora::desktop {

enum class MessageBus { session, system };

/// A bus that works answers much sooner.
inline constexpr std::chrono::seconds kMaxBusSilence{2};

/// The environment variable with the addresses of the bus.
const char* addressVariable(MessageBus bus);

/// Whether the bus lets a client in within `limit`. True also when it refuses at once, and for an address that only the
/// libraries can judge: without one for the session they may start a bus. Blocks for `limit` at most; any thread.
bool doesBusAnswer(MessageBus bus, const ProcessEnvironment& environment, std::chrono::milliseconds limit);

}  // namespace rondora::desktop
