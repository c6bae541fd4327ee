#include "platform/macos/foundation/preferences.h"

#include <CoreFoundation/CoreFoundation.h>

#include "platform/macos/foundation/cf_values.h"

namespace rondora::macos {
namespace {

PropertyList valueOf(std::string_view key) {
  const auto name = makeString(key);
  if (!name) return {};
  const auto value = CFRef<CFTypeRef>::adopt(CFPreferencesCopyAppValue(name.get(), kCFPreferencesCurrentApplication));
  return propertyListOf(value.get());
}

}  // namespace

bool Preferences::hasValue(std::string_view key) const {
  const auto name = makeString(key);
  return name && CFRef<CFTypeRef>::adopt(CFPreferencesCopyAppValue(name.get(), kCFPreferencesCurrentApplication));
}

void Preferences::setInteger(std::string_view key, std::int64_t value) {
  set(key, CFRef<CFNumberRef>::adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &value)).get());
}

bool Preferences::boolean(std::string_view key) const {
  const PropertyList value = valueOf(key);
  return booleanOf(&value).value_or(false);
}

void Preferences::setBoolean(std::string_view key, bool value) { set(key, value ? kCFBooleanTrue : kCFBooleanFalse); }

std::optional<std::string> Preferences::string(std::string_view key) const {
  const PropertyList value = valueOf(key);
  const auto* text = value.as<std::string>();
  return text == nullptr ? std::nullopt : std::optional(*text);
}

void Preferences::setString(std::string_view key, std::string_view text) { set(key, makeString(text).get()); }

bool Preferences::isEmpty() const {
  const auto keys = CFRef<CFArrayRef>::adopt(
      CFPreferencesCopyKeyList(kCFPreferencesCurrentApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
  return !keys || CFArrayGetCount(keys.get()) == 0;
}

bool Preferences::importDomain(const Predecessor& predecessor) {
  const auto domain = makeString(predecessor.bundleIdentifier);
  if (!domain) return false;
  const auto values = CFRef<CFDictionaryRef>::adopt(
      CFPreferencesCopyMultiple(nullptr, domain.get(), kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
  if (!values || CFDictionaryGetCount(values.get()) == 0) return false;
  CFPreferencesSetMultiple(values.get(), nullptr, kCFPreferencesCurrentApplication, kCFPreferencesCurrentUser,
                           kCFPreferencesAnyHost);
  write();
  return true;
}

void Preferences::set(std::string_view key, const void* value) {
  const auto name = makeString(key);
  if (!name || value == nullptr) return;
  CFPreferencesSetAppValue(name.get(), value, kCFPreferencesCurrentApplication);
  write();
}

void Preferences::write() {
  if (CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication)) {
    problem_.reset();
  } else {
    problem_ = "the preferences cannot be written";
  }
}

}  // namespace rondora::macos
