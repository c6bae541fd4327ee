#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/macos/conversions/property_list.h"
#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {

/// None for text that is not UTF-8.
CFRef<CFStringRef> makeString(std::string_view text);
/// In UTF-8.
std::string textOf(CFStringRef string);

/// None of the objects may be null.
template <class Ref>
CFRef<CFArrayRef> makeArray(const std::vector<CFRef<Ref>>& objects) {
  std::vector<const void*> items;
  items.reserve(objects.size());
  for (const auto& object : objects) items.push_back(object.get());
  return CFRef<CFArrayRef>::adopt(
      CFArrayCreate(kCFAllocatorDefault, items.data(), static_cast<CFIndex>(items.size()), &kCFTypeArrayCallBacks));
}

/// A copy as plain data; null holds nothing.
PropertyList propertyListOf(CFTypeRef value);

/// The reference if the object has that type, else null. `typeID` is the type's ...GetTypeID().
template <class Ref>
Ref castTo(CFTypeRef object, CFTypeID typeID) {
  return object != nullptr && CFGetTypeID(object) == typeID ? static_cast<Ref>(object) : nullptr;
}

}  // namespace rondora::macos
