// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsevent.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@class NSWindow;

typedef NS_ENUM(NSUInteger, NSEventType) {
  NSEventTypeKeyDown = 10,
  NSEventTypeKeyUp = 11,
  NSEventTypeFlagsChanged = 12
};
typedef NS_OPTIONS(unsigned long long, NSEventMask) {
  NSEventMaskLeftMouseDown = 1ULL << 1,
  NSEventMaskRightMouseDown = 1ULL << 3,
  NSEventMaskKeyDown = 1ULL << 10,
  NSEventMaskKeyUp = 1ULL << 11,
  NSEventMaskFlagsChanged = 1ULL << 12,
  NSEventMaskOtherMouseDown = 1ULL << 25
};
typedef NS_OPTIONS(NSUInteger, NSEventModifierFlags) {
  NSEventModifierFlagShift = 1 << 17,
  NSEventModifierFlagControl = 1 << 18,
  NSEventModifierFlagOption = 1 << 19,
  NSEventModifierFlagCommand = 1 << 20,
  NSEventModifierFlagFunction = 1 << 23
};

@interface NSEvent : NSObject
@property(class, readonly) NSEventModifierFlags modifierFlags;
@property(class, readonly) NSPoint mouseLocation;
@property(readonly) NSEventType type;
@property(readonly) NSEventModifierFlags modifierFlags;
@property(readonly) NSPoint locationInWindow;
@property(readonly, copy) NSString* characters;
@property(readonly, copy) NSString* charactersIgnoringModifiers;
@property(getter=isARepeat, readonly) BOOL ARepeat;
@property(readonly) unsigned short keyCode;
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent* event))block;
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent* event))block;
+ (void)removeMonitor:(id)eventMonitor;
@end
