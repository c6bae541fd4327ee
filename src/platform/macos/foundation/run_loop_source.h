#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "base/observable.h"
#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {

/// Has the main run loop serve the source, in all its common modes, until the result is reset or destroyed.
[[nodiscard]] inline Subscription addToMainRunLoop(const CFRef<CFRunLoopSourceRef>& source) {
  if (!source) return {};
  CFRunLoopAddSource(CFRunLoopGetMain(), source.get(), kCFRunLoopCommonModes);
  return Subscription([source] { CFRunLoopRemoveSource(CFRunLoopGetMain(), source.get(), kCFRunLoopCommonModes); });
}

}  // namespace rondora::macos
