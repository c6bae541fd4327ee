// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsfont.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@interface NSFont : NSObject
+ (NSFont*)boldSystemFontOfSize:(CGFloat)fontSize;
@end
