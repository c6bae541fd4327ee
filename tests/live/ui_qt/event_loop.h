#pragma once

#include <chrono>
#include <functional>

#include "ui/qt/event_turns.h"

namespace rondora {

/// Turns the toolkit's event loop until the condition holds; false when the time is up.
inline bool waitUntil(const std::function<bool()>& condition) {
  return handleEventsUntil(condition, std::chrono::seconds(15));
}

}  // namespace rondora
