// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsscrollview.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSView.h>

// NSScroller.Style, NSClipView, NSScrollView
typedef NS_ENUM(NSInteger, NSScrollerStyle) { NSScrollerStyleOverlay = 1 };

@interface NSClipView : NSView
@end

@interface NSScrollView : NSView
@property(strong) NSView* documentView;
@property(strong) NSClipView* contentView;
@property BOOL drawsBackground;
@property BOOL hasVerticalScroller;
@property BOOL autohidesScrollers;
@property NSScrollerStyle scrollerStyle;
@end
