#include "platform/macos/foundation/activity.h"

namespace rondora::macos {

Activity::Activity()
    : token_([NSProcessInfo.processInfo beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                                                          reason:@"Hotkeys open menus at once"]) {}

Activity::~Activity() { [NSProcessInfo.processInfo endActivity:token_]; }

}  // namespace rondora::macos
