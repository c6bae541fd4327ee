#pragma once

#include <chrono>
#include <functional>

namespace rondora {

/// Handles events until the condition holds or the time is up, also when the event loop has ended. False when the time
/// is up. Main thread, with the application object.
bool handleEventsUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit);

}  // namespace rondora
