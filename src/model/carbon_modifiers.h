#pragma once

#include <cstdint>

namespace rondora {

/// The modifier bits of a hot key. The Fn bit has the value that means Shift among event flags; always convert.
namespace carbon {
inline constexpr std::int64_t kCommand = 0x100;
inline constexpr std::int64_t kShift = 0x200;
inline constexpr std::int64_t kOption = 0x800;
inline constexpr std::int64_t kControl = 0x1000;
inline constexpr std::int64_t kFunction = 0x20000;
}  // namespace carbon

struct CarbonModifiers {
  /// Event flags (platform/key_event.h) to a Carbon mask; other bits are dropped.
  static std::int64_t carbon(std::uint64_t eventFlags);
  /// A Carbon mask to event flags; other bits are dropped.
  static std::uint64_t eventFlags(std::int64_t carbonModifiers);
};

/// Every modifier of `required` is among `eventFlags`, whose device-dependent bits do not count.
bool allHeld(std::uint64_t eventFlags, std::uint64_t required);

}  // namespace rondora
