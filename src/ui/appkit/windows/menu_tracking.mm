#include "ui/appkit/windows/menu_tracking.h"

#include "platform/macos/foundation/notification_subscription.h"

namespace rondora::appkit {

MenuTracking::MenuTracking()
    : begun_(macos::observe(NSNotificationCenter.defaultCenter, NSMenuDidBeginTrackingNotification,
                            ^(NSNotification* notification) {
                              open_ = notification.object;
                            })),
      ended_(macos::observe(NSNotificationCenter.defaultCenter, NSMenuDidEndTrackingNotification, ^(NSNotification*) {
        open_ = nil;
      })) {}

void MenuTracking::cancel() { [open_ cancelTracking]; }

}  // namespace rondora::appkit
