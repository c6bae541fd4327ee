// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/foundation/nsprocessinfo.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSObjCRuntime.h>
#include <Foundation/NSString.h>

typedef NS_OPTIONS(uint64_t, NSActivityOptions) { NSActivityUserInitiatedAllowingIdleSystemSleep = 0xEFFFFF };

@interface NSProcessInfo : NSObject
@property(class, readonly, strong) NSProcessInfo* processInfo;
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason;
- (void)endActivity:(id<NSObject>)activity;
@end
