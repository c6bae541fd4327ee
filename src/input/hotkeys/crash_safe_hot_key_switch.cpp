#include "input/hotkeys/crash_safe_hot_key_switch.h"

#include <string>

namespace rondora {
namespace {

std::string keyOf(std::int32_t id) { return "pie.switchedOffShortcut." + std::to_string(id); }

}  // namespace

CrashSafeHotKeySwitch::CrashSafeHotKeySwitch(SymbolicHotKeySwitch& hotKeys, UserDefaults& defaults)
    : hotKeys_(hotKeys), defaults_(defaults) {
  for (const std::int32_t id : {kCommandTab, kCommandShiftTab}) {
    if (defaults_.boolean(keyOf(id)) && available()) setEnabled(id, true);
  }
}

void CrashSafeHotKeySwitch::setEnabled(std::int32_t id, bool isEnabled) {
  if (!isEnabled) note(id, true);
  hotKeys_.setEnabled(id, isEnabled);
  if (isEnabled) note(id, false);
}

void CrashSafeHotKeySwitch::note(std::int32_t id, bool isOff) {
  if (defaults_.boolean(keyOf(id)) != isOff) defaults_.setBoolean(keyOf(id), isOff);
}

}  // namespace rondora
