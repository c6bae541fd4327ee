// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/appkit/nsuserinterfacelayout.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, NSUserInterfaceLayoutDirection) {
  NSUserInterfaceLayoutDirectionLeftToRight,
  NSUserInterfaceLayoutDirectionRightToLeft
};
typedef NS_ENUM(NSInteger, NSUserInterfaceLayoutOrientation) {
  NSUserInterfaceLayoutOrientationHorizontal,
  NSUserInterfaceLayoutOrientationVertical
};
