// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsaccessibility.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NSString* NSAccessibilityRole;
FOUNDATION_EXPORT const NSAccessibilityRole NSAccessibilityButtonRole;
FOUNDATION_EXPORT const NSAccessibilityRole NSAccessibilityMenuButtonRole;
FOUNDATION_EXPORT const NSAccessibilityRole NSAccessibilityUnknownRole;

@protocol NSAccessibility
@property(getter=isAccessibilityElement) BOOL accessibilityElement;
@property(copy) NSString* accessibilityHelp;
@property(copy) NSString* accessibilityLabel;
@property(copy) NSAccessibilityRole accessibilityRole;
@end

typedef NSString* NSAccessibilityNotificationName;
typedef NSString* NSAccessibilityNotificationUserInfoKey;
typedef NS_ENUM(NSInteger, NSAccessibilityPriorityLevel) { NSAccessibilityPriorityHigh = 90 };
FOUNDATION_EXPORT const NSAccessibilityNotificationName NSAccessibilityAnnouncementRequestedNotification;
FOUNDATION_EXPORT const NSAccessibilityNotificationUserInfoKey NSAccessibilityAnnouncementKey;
FOUNDATION_EXPORT const NSAccessibilityNotificationUserInfoKey NSAccessibilityPriorityKey;
FOUNDATION_EXPORT void NSAccessibilityPostNotificationWithUserInfo(id element,
                                                                   NSAccessibilityNotificationName notification,
                                                                   NSDictionary* userInfo);
