// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsimage.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@interface NSImage : NSObject
- (void)setTemplate:(BOOL)isTemplate;
+ (instancetype)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description;
@end
