// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsappearance.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NSString* NSAppearanceName;
FOUNDATION_EXPORT const NSAppearanceName NSAppearanceNameDarkAqua;

@interface NSAppearance : NSObject
+ (NSAppearance*)appearanceNamed:(NSAppearanceName)name;
@end
