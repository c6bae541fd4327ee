// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsattributedstring.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NS_OPTIONS(NSInteger, NSStringDrawingOptions) {
  NSStringDrawingUsesLineFragmentOrigin = 1 << 0,
  NSStringDrawingTruncatesLastVisibleLine = 1 << 5
};

FOUNDATION_EXPORT const NSAttributedStringKey NSFontAttributeName;
FOUNDATION_EXPORT const NSAttributedStringKey NSForegroundColorAttributeName;

@class NSStringDrawingContext;

@interface NSAttributedString (NSExtendedStringDrawing)
- (void)drawWithRect:(NSRect)rect options:(NSStringDrawingOptions)options context:(NSStringDrawingContext*)context;
- (NSRect)boundingRectWithSize:(NSSize)size
                       options:(NSStringDrawingOptions)options
                       context:(NSStringDrawingContext*)context;
@end
