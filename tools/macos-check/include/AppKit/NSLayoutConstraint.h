// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nslayoutconstraint.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, NSLayoutAttribute) {
  NSLayoutAttributeTop = 3,
  NSLayoutAttributeLeading = 5,
  NSLayoutAttributeCenterY = 10
};

@interface NSLayoutConstraint : NSObject
@property(getter=isActive) BOOL active;
@end

@class NSLayoutXAxisAnchor;
@class NSLayoutYAxisAnchor;
@class NSLayoutDimension;

// NSLayoutAnchor, NSLayoutDimension
@interface NSLayoutAnchor<AnchorType> : NSObject
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor<AnchorType>*)anchor constant:(CGFloat)c;
@end

@interface NSLayoutXAxisAnchor : NSLayoutAnchor <NSLayoutXAxisAnchor*>
@end

@interface NSLayoutYAxisAnchor : NSLayoutAnchor <NSLayoutYAxisAnchor*>
@end

@interface NSLayoutDimension : NSLayoutAnchor <NSLayoutDimension*>
- (NSLayoutConstraint*)constraintEqualToConstant:(CGFloat)c;
@end
