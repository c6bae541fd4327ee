// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nscolor.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@interface NSColor : NSObject
@property(class, strong, readonly) NSColor* blackColor;
@property(class, strong, readonly) NSColor* controlAccentColor;
@property(class, strong, readonly) NSColor* controlBackgroundColor;
@property(class, strong, readonly) NSColor* separatorColor;
@property(class, strong, readonly) NSColor* clearColor;
- (void)set;
+ (NSColor*)colorWithSRGBRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
@end
