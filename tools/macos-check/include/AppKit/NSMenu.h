// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsmenu.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@class NSMenuItem;

@interface NSMenu : NSObject
@property(readonly) NSInteger numberOfItems;
- (instancetype)initWithTitle:(NSString*)title;
- (void)addItem:(NSMenuItem*)newItem;
- (NSMenuItem*)itemAtIndex:(NSInteger)index;
- (void)cancelTracking;
@end

// NSMenuItemValidation
@protocol NSMenuItemValidation <NSObject>
- (BOOL)validateMenuItem:(NSMenuItem*)menuItem;
@end

FOUNDATION_EXPORT NSNotificationName const NSMenuDidBeginTrackingNotification;
FOUNDATION_EXPORT NSNotificationName const NSMenuDidEndTrackingNotification;
