#pragma once

#include <chrono>
#include <thread>

namespace rondora::live {

/// Long enough for a loaded machine; only a failing test ever waits that long.
inline constexpr std::chrono::seconds kPatience{30};

/// Asks again and again until the condition holds; false when the time is up.
template <class Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds limit = kPatience) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

}  // namespace rondora::live
