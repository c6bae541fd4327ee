#include "platform/macos/window_server/quartz_window_list.h"

#include <CoreGraphics/CoreGraphics.h>

#include "platform/macos/conversions/window_information.h"
#include "platform/macos/foundation/cf_values.h"

namespace rondora::macos {
namespace {

/// The windows of all spaces, without the desktop's own.
constexpr CGWindowListOption kAllWindows = kCGWindowListExcludeDesktopElements;
static_assert(kAllWindows == 0x10);

}  // namespace

std::vector<WindowListEntry> QuartzWindowList::windows() const {
  const auto list = CFRef<CFArrayRef>::adopt(CGWindowListCopyWindowInfo(kAllWindows, kCGNullWindowID));
  const PropertyList information = propertyListOf(list.get());
  std::vector<WindowListEntry> entries;
  if (const auto* windows = information.as<PropertyList::Array>()) {
    for (const PropertyList& window : *windows) entries.push_back(windowListEntry(window));
  }
  return entries;
}

}  // namespace rondora::macos
