#pragma once

#include <cstdint>
#include <set>

#include "platform/symbolic_hot_key_switch.h"

namespace rondora {

/// Keeps the system's own application switcher away from its keys. One for the process. Main thread.
class NativeAppSwitcher {
 public:
  explicit NativeAppSwitcher(SymbolicHotKeySwitch& hotKeys) : hotKeys_(hotKeys) {}

  /// Switches off these shortcuts of the system and no others.
  void suspend(bool commandTab, bool commandShiftTab);
  void restore();

 private:
  void setEnabled(std::int32_t id, bool isEnabled);

  SymbolicHotKeySwitch& hotKeys_;
  std::set<std::int32_t> switchedOff_;
};

}  // namespace rondora
