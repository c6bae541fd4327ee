#pragma once

#include <cstdint>

namespace rondora {

/// Switches the system's own keyboard shortcuts on and off. Main thread.
class SymbolicHotKeySwitch {
 public:
  static constexpr std::int32_t kCommandTab = 1;
  static constexpr std::int32_t kCommandShiftTab = 2;

  virtual ~SymbolicHotKeySwitch() = default;

  /// False when the system has no such switch. Constant after the first call.
  virtual bool available() = 0;
  virtual void setEnabled(std::int32_t id, bool isEnabled) = 0;
};

}  // namespace rondora
