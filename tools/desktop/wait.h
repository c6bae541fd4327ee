#pragma once

#include <chrono>
#include <cstdlib>
#include <thread>

namespace rondora::live {

/// Long enough for a loaded machine; only a failing test waits that long.
inline constexpr std::chrono::seconds kPatience{30};

/// The number of rounds of a long test; RONDORA_TEST_ROUNDS overrides it.
inline int rounds(int byDefault) {
  const char* wanted = std::getenv("RONDORA_TEST_ROUNDS");
  return wanted == nullptr ? byDefault : std::atoi(wanted);
}

/// Polls the condition until it holds; false after the deadline.
template <class Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds limit = kPatience) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

/// Until the condition holds at five looks in a row.
template <class Condition>
bool waitUntilSteady(Condition condition) {
  constexpr int kLooks = 5;
  int held = 0;
  return waitUntil([&] {
    held = condition() ? held + 1 : 0;
    return held >= kLooks;
  });
}

}  // namespace rondora::live
