// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsbox.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSColor.h>
#include <AppKit/NSView.h>

typedef NS_ENUM(NSUInteger, NSBoxType) { NSBoxCustom = 4 };
typedef NS_ENUM(NSUInteger, NSTitlePosition) { NSNoTitle = 0 };

@interface NSBox : NSView
@property NSBoxType boxType;
@property NSTitlePosition titlePosition;
@property CGFloat borderWidth;
@property CGFloat cornerRadius;
@property(copy) NSColor* borderColor;
@property(copy) NSColor* fillColor;
@property(strong) NSView* contentView;
@end
