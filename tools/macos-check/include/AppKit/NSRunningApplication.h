// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/appkit/nsrunningapplication.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>
#include <sys/types.h>

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
  NSApplicationActivationPolicyRegular,
  NSApplicationActivationPolicyAccessory,
  NSApplicationActivationPolicyProhibited
};

@interface NSRunningApplication : NSObject
@property(readonly) pid_t processIdentifier;
@property(readonly, copy) NSString* bundleIdentifier;
@end
