#pragma once

#include <chrono>
#include <cstdlib>
#include <thread>

namespace rondora::live {

/// Long enough for a loaded machine; only a failing test ever waits that long.
inline constexpr std::chrono::seconds kPatience{30};

/// How often a long test is to try; more than a few by RONDORA_TEST_ROUNDS.
inline int rounds(int byDefault) {
  const char* wanted = std::getenv("RONDORA_TEST_ROUNDS");
  return wanted == nullptr ? byDefault : std::atoi(wanted);
}

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
