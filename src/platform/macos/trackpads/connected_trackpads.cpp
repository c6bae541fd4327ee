#include "platform/macos/trackpads/connected_trackpads.h"

#include <IOKit/IOKitLib.h>

#include "platform/macos/trackpads/trackpad_service.h"

namespace rondora::macos {

TrackpadAccess ConnectedTrackpads::access() const {
  const io_service_t found = IOServiceGetMatchingService(kIOMainPortDefault, IOServiceMatching(kTrackpadClass));
  if (found == IO_OBJECT_NULL) return TrackpadAccess::none;
  IOObjectRelease(found);
  return TrackpadAccess::readable;
}

}  // namespace rondora::macos
