#include "platform/macos/events/trackpad_haptics.h"

#include <AppKit/AppKit.h>
#include <IOKit/IOKitLib.h>

#include "platform/macos/foundation/cf_values.h"
#include "platform/macos/trackpads/trackpad_service.h"

namespace rondora::macos {
namespace {

constexpr std::string_view kActuationSupported = "ActuationSupported";

bool canActuate(io_service_t trackpad) {
  const auto key = makeString(kActuationSupported);
  const auto value = CFRef<CFTypeRef>::adopt(
      IORegistryEntryCreateCFProperty(trackpad, key.get(), kCFAllocatorDefault, IOOptionBits{0}));
  const PropertyList property = propertyListOf(value.get());
  return booleanOf(&property).value_or(false);
}

NSHapticFeedbackPattern patternOf(HapticPattern pattern) {
  return pattern == HapticPattern::levelChange ? NSHapticFeedbackPatternLevelChange : NSHapticFeedbackPatternAlignment;
}

}  // namespace

bool TrackpadHaptics::isAvailable() const {
  io_iterator_t trackpads = IO_OBJECT_NULL;
  // Takes over the dictionary.
  if (IOServiceGetMatchingServices(kIOMainPortDefault, IOServiceMatching(kTrackpadClass), &trackpads) != KERN_SUCCESS) {
    return false;
  }
  bool isFound = false;
  for (io_service_t each = IOIteratorNext(trackpads); each != IO_OBJECT_NULL; each = IOIteratorNext(trackpads)) {
    isFound = isFound || canActuate(each);
    IOObjectRelease(each);
  }
  IOObjectRelease(trackpads);
  return isFound;
}

void TrackpadHaptics::perform(HapticPattern pattern) {
  [NSHapticFeedbackManager.defaultPerformer performFeedbackPattern:patternOf(pattern)
                                                   performanceTime:NSHapticFeedbackPerformanceTimeDefault];
}

}  // namespace rondora::macos
