// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsaccessibility.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NSString* NSAccessibilityRole;
FOUNDATION_EXPORT const NSAccessibilityRole NSAccessibilityButtonRole;
FOUNDATION_EXPORT const NSAccessibilityRole NSAccessibilityMenuButtonRole;

@protocol NSAccessibility
@property(getter=isAccessibilityElement) BOOL accessibilityElement;
@property(copy) NSString* accessibilityLabel;
@property(copy) NSAccessibilityRole accessibilityRole;
@end
