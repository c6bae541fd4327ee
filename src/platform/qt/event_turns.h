#pragma once

#include <chrono>
#include <functional>

namespace rondora {

/// Handles events until the condition holds or the limit expires, even after the event loop has ended. False on expiry.
/// Main thread; needs the application object.
bool handleEventsUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit);

}  // namespace rondora
