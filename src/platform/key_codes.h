#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// Virtual key codes: keys by their place on the keyboard.

namespace rondora::key_codes {

inline constexpr std::uint16_t kLeftArrow = 123;
inline constexpr std::uint16_t kRightArrow = 124;
inline constexpr std::uint16_t kDownArrow = 125;
inline constexpr std::uint16_t kUpArrow = 126;
inline constexpr std::array<std::uint16_t, 4> kArrows = {kLeftArrow, kRightArrow, kDownArrow, kUpArrow};

inline constexpr std::uint16_t kHelp = 114;
/// Home, Page Up, Forward Delete, End, Page Down.
inline constexpr std::array<std::uint16_t, 5> kNavigation = {115, 116, 117, 119, 121};
/// F1 to F20.
inline constexpr std::array<std::uint16_t, 20> kFunctionRow = {122, 120, 99,  118, 96,  97,  98, 100, 101, 109,
                                                               103, 111, 105, 107, 113, 106, 64, 79,  80,  90};

template <std::size_t count>
constexpr bool isAmong(const std::array<std::uint16_t, count>& codes, std::int64_t keyCode) {
  for (const std::uint16_t code : codes) {
    if (code == keyCode) return true;
  }
  return false;
}

}  // namespace rondora::key_codes
