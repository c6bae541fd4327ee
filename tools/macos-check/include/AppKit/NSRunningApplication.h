// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/appkit/nsrunningapplication.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>
#include <sys/types.h>

@class NSImage;

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
  NSApplicationActivationPolicyRegular,
  NSApplicationActivationPolicyAccessory,
  NSApplicationActivationPolicyProhibited
};

typedef NS_OPTIONS(NSUInteger, NSApplicationActivationOptions) { NSApplicationActivateAllWindows = 1 << 0 };

@interface NSRunningApplication : NSObject
@property(readonly) pid_t processIdentifier;
@property(readonly, copy) NSString* bundleIdentifier;
@property(readonly, copy) NSString* localizedName;
@property(readonly, strong) NSImage* icon;
@property(readonly) NSApplicationActivationPolicy activationPolicy;
@property(readonly, getter=isTerminated) BOOL terminated;
@property(readonly, getter=isHidden) BOOL hidden;
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid;
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
- (BOOL)hide;
- (BOOL)unhide;
- (BOOL)terminate;
@end
