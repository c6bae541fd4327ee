// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nstextfield.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSControl.h>

@interface NSTextField : NSControl
@property(getter=isSelectable) BOOL selectable;
@property CGFloat preferredMaxLayoutWidth;
+ (instancetype)labelWithString:(NSString*)stringValue;
+ (instancetype)wrappingLabelWithString:(NSString*)stringValue;
@end
