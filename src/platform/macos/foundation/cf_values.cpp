#include "platform/macos/foundation/cf_values.h"

#include <cstdint>

namespace rondora::macos {
namespace {

PropertyList::Array itemsOf(CFArrayRef array) {
  PropertyList::Array items;
  const CFIndex count = CFArrayGetCount(array);
  items.reserve(static_cast<std::size_t>(count));
  for (CFIndex i = 0; i < count; ++i) items.push_back(propertyListOf(CFArrayGetValueAtIndex(array, i)));
  return items;
}

void addEntry(const void* key, const void* value, void* entries) {
  const auto name = castTo<CFStringRef>(key, CFStringGetTypeID());
  if (name == nullptr) return;
  static_cast<PropertyList::Dictionary*>(entries)->push_back({textOf(name), propertyListOf(value)});
}

PropertyList::Dictionary entriesOf(CFDictionaryRef dictionary) {
  PropertyList::Dictionary entries;
  entries.reserve(static_cast<std::size_t>(CFDictionaryGetCount(dictionary)));
  CFDictionaryApplyFunction(dictionary, addEntry, &entries);
  return entries;
}

PropertyList numberOf(CFNumberRef number) {
  double real = 0;
  if (CFNumberIsFloatType(number)) {
    CFNumberGetValue(number, kCFNumberFloat64Type, &real);
    return {real};
  }
  std::int64_t integer = 0;
  CFNumberGetValue(number, kCFNumberSInt64Type, &integer);
  return {integer};
}

}  // namespace

CFRef<CFStringRef> makeString(std::string_view text) {
  constexpr Boolean kHasByteOrderMark = false;
  return CFRef<CFStringRef>::adopt(
      CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(text.data()),
                              static_cast<CFIndex>(text.size()), kCFStringEncodingUTF8, kHasByteOrderMark));
}

std::string textOf(CFStringRef string) {
  constexpr UInt8 kForUnpairedSurrogate = '?';
  const CFRange whole{0, CFStringGetLength(string)};
  CFIndex size = 0;
  CFStringGetBytes(string, whole, kCFStringEncodingUTF8, kForUnpairedSurrogate, false, nullptr, 0, &size);
  std::string text(static_cast<std::size_t>(size), '\0');
  CFStringGetBytes(string, whole, kCFStringEncodingUTF8, kForUnpairedSurrogate, false,
                   reinterpret_cast<UInt8*>(text.data()), size, nullptr);
  return text;
}

PropertyList propertyListOf(CFTypeRef value) {
  if (const auto text = castTo<CFStringRef>(value, CFStringGetTypeID())) return {textOf(text)};
  if (const auto boolean = castTo<CFBooleanRef>(value, CFBooleanGetTypeID())) return {CFBooleanGetValue(boolean) != 0};
  if (const auto number = castTo<CFNumberRef>(value, CFNumberGetTypeID())) return numberOf(number);
  if (const auto array = castTo<CFArrayRef>(value, CFArrayGetTypeID())) return {itemsOf(array)};
  if (const auto entries = castTo<CFDictionaryRef>(value, CFDictionaryGetTypeID())) return {entriesOf(entries)};
  return {};
}

}  // namespace rondora::macos
