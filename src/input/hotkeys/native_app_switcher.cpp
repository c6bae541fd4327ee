#include "input/hotkeys/native_app_switcher.h"

#include <utility>

namespace rondora {

void NativeAppSwitcher::suspend(bool commandTab, bool commandShiftTab) {
  std::set<std::int32_t> wanted;
  if (commandTab) wanted.insert(SymbolicHotKeySwitch::kCommandTab);
  if (commandShiftTab) wanted.insert(SymbolicHotKeySwitch::kCommandShiftTab);
  const std::set<std::int32_t> before = std::exchange(switchedOff_, wanted);
  for (const std::int32_t id : before) {
    if (!wanted.contains(id)) setEnabled(id, true);
  }
  for (const std::int32_t id : wanted) {
    if (!before.contains(id)) setEnabled(id, false);
  }
}

void NativeAppSwitcher::restore() { suspend(false, false); }

void NativeAppSwitcher::setEnabled(std::int32_t id, bool isEnabled) {
  if (hotKeys_.available()) hotKeys_.setEnabled(id, isEnabled);
}

}  // namespace rondora
