// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nstrackingarea.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NS_OPTIONS(NSUInteger, NSTrackingAreaOptions) {
  NSTrackingMouseEnteredAndExited = 0x01,
  NSTrackingMouseMoved = 0x02,
  NSTrackingCursorUpdate = 0x04,
  NSTrackingActiveInKeyWindow = 0x20,
  NSTrackingActiveAlways = 0x80,
  NSTrackingInVisibleRect = 0x200
};

@interface NSTrackingArea : NSObject
- (instancetype)initWithRect:(NSRect)rect
                     options:(NSTrackingAreaOptions)options
                       owner:(id)owner
                    userInfo:(NSDictionary*)userInfo;
@end
