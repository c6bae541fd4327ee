#pragma once

#include <cstdint>

#include "platform/symbolic_hot_key_switch.h"
#include "platform/user_defaults.h"

namespace rondora {

/// For a system whose shortcuts stay switched off when the program ends: what is off stands in the user defaults before
/// it is switched off, and is switched on again at the next launch after a crash. Main thread.
class CrashSafeHotKeySwitch final : public SymbolicHotKeySwitch {
 public:
  /// Both must outlive the object.
  CrashSafeHotKeySwitch(SymbolicHotKeySwitch& hotKeys, UserDefaults& defaults);

  bool available() override { return hotKeys_.available(); }
  void setEnabled(std::int32_t id, bool isEnabled) override;

 private:
  void note(std::int32_t id, bool isOff);

  SymbolicHotKeySwitch& hotKeys_;
  UserDefaults& defaults_;
};

}  // namespace rondora
