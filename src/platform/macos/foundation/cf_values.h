#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/macos/conversions/property_list.h"
#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {

/// None for text that is not UTF-8.
CFRef<CFStringRef> makeString(std::string_view text);
/// In UTF-8.
std::string textOf(CFStringRef string);

/// A copy as plain data; null holds nothing.
PropertyList propertyListOf(CFTypeRef value);

/// The reference if the object has that type, else null. `typeID` is the type's ...GetTypeID().
template <class Ref>
Ref castTo(CFTypeRef object, CFTypeID typeID) {
  return object != nullptr && CFGetTypeID(object) == typeID ? static_cast<Ref>(object) : nullptr;
}

}  // namespace rondora::macos
