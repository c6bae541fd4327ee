#include "platform/macos/keyboard/symbolic_hot_key_preferences.h"

#include "platform/macos/conversions/symbolic_hot_key_settings.h"
#include "platform/macos/foundation/cf_values.h"

namespace rondora::macos {

std::optional<SymbolicHotKey> SymbolicHotKeyPreferences::symbolicHotKey(int number) const {
  const auto settings = CFRef<CFTypeRef>::adopt(
      CFPreferencesCopyAppValue(makeString(kSymbolicHotKeysKey).get(), makeString(kSymbolicHotKeysSuite).get()));
  return macos::symbolicHotKey(propertyListOf(settings.get()), number);
}

}  // namespace rondora::macos
