#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include <optional>

#include "platform/accessibility.h"
#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {

/// Nothing for null, for an error in a value's place, and for types that the port does not have.
std::optional<AXValue> valueOf(CFTypeRef object);

/// None for an element of another implementation.
CFRef<CFTypeRef> systemValueOf(const AXValue& value);

}  // namespace rondora::macos
