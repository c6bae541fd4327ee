#include "platform/macos/foundation/notification_subscription.h"

namespace rondora::macos {

Subscription observe(NSNotificationCenter* center, NSNotificationName name,
                     void (^block)(NSNotification* notification)) {
  const id<NSObject> observer = [center addObserverForName:name
                                                    object:nil
                                                     queue:NSOperationQueue.mainQueue
                                                usingBlock:block];
  return Subscription([center, observer] { [center removeObserver:observer]; });
}

}  // namespace rondora::macos
