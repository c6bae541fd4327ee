// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsfont.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef CGFloat NSFontWeight;
FOUNDATION_EXPORT const NSFontWeight NSFontWeightRegular;
FOUNDATION_EXPORT const NSFontWeight NSFontWeightMedium;
FOUNDATION_EXPORT const NSFontWeight NSFontWeightSemibold;
FOUNDATION_EXPORT const NSFontWeight NSFontWeightBold;

@interface NSFont : NSObject
@property(class, readonly) CGFloat systemFontSize;
@property(class, readonly) CGFloat smallSystemFontSize;
+ (NSFont*)boldSystemFontOfSize:(CGFloat)fontSize;
+ (NSFont*)systemFontOfSize:(CGFloat)fontSize;
+ (NSFont*)systemFontOfSize:(CGFloat)fontSize weight:(NSFontWeight)weight;
@end
