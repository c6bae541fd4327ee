#pragma once

#include <cstdint>

#include "model/carbon_modifiers.h"

namespace rondora {

inline constexpr std::int64_t kFnKeyCode = 63;
inline constexpr std::int64_t kTabKeyCode = 48;
inline constexpr std::int64_t kEscapeKeyCode = 53;

/// A key combination: a virtual key code (−1 for none) and a Carbon modifier mask.
struct HotkeyConfig {
  std::int64_t keyCode = -1;
  std::int64_t carbonModifiers = 0;
  friend bool operator==(const HotkeyConfig&, const HotkeyConfig&) = default;

  bool isAssigned() const { return keyCode >= 0; }
  bool hasModifiers() const { return carbonModifiers != 0; }
  /// The Fn key alone.
  bool isStandaloneFn() const { return keyCode == kFnKeyCode && carbonModifiers == 0; }
  bool hasFunctionModifier() const { return (carbonModifiers & carbon::kFunction) != 0; }
  /// Command+Tab, alone or with further modifiers other than Fn.
  bool isCommandTabStyle() const {
    return keyCode == kTabKeyCode && (carbonModifiers & carbon::kCommand) != 0 && !hasFunctionModifier();
  }

  /// Carbon mask to event flags.
  static std::uint64_t cgEventModifiers(std::int64_t carbonModifiers) {
    return CarbonModifiers::eventFlags(carbonModifiers);
  }
};

}  // namespace rondora
