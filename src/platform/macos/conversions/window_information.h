#pragma once

#include "platform/macos/conversions/property_list.h"
#include "platform/window_list.h"

namespace rondora::macos {

/// A dictionary of the window server's list.
WindowListEntry windowListEntry(const PropertyList& information);

}  // namespace rondora::macos
