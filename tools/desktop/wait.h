#pragma once

#include <algorithm>
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

/// Polls the condition until it holds; false after the limit. While the machine stands still, what is waited for does
/// too: no more than a slice of such a time counts.
template <class Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds limit = kPatience) {
  using Clock = std::chrono::steady_clock;
  constexpr Clock::duration kSlice = std::chrono::seconds(1);
  Clock::duration waited{0};
  for (auto last = Clock::now(); !condition();) {
    if (waited >= limit) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    const auto now = Clock::now();
    waited += std::min(now - last, kSlice);
    last = now;
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
