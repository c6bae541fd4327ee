#pragma once

#include <Foundation/Foundation.h>

#include "base/observable.h"

namespace rondora::macos {

/// Has the block called on the main queue with each notification of this name until the result is reset or destroyed.
[[nodiscard]] Subscription observe(NSNotificationCenter* center, NSNotificationName name,
                                   void (^block)(NSNotification* notification));

}  // namespace rondora::macos
