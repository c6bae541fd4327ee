// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsstackview.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSView.h>

typedef NS_ENUM(NSInteger, NSStackViewGravity) { NSStackViewGravityLeading = 1, NSStackViewGravityTrailing = 3 };

@interface NSStackView : NSView
@property NSUserInterfaceLayoutOrientation orientation;
@property NSLayoutAttribute alignment;
@property NSEdgeInsets edgeInsets;
@property CGFloat spacing;
@property(readonly, copy) NSArray<NSView*>* arrangedSubviews;
- (void)addArrangedSubview:(NSView*)view;
- (void)addView:(NSView*)view inGravity:(NSStackViewGravity)gravity;
@end
