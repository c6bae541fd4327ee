// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsbutton.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSControl.h>
#include <AppKit/NSImage.h>

typedef NS_ENUM(NSUInteger, NSBezelStyle) { NSBezelStyleRounded = 1 };

@interface NSButton : NSControl
@property(copy) NSString* title;
@property(strong) NSImage* image;
@property NSCellImagePosition imagePosition;
@property NSBezelStyle bezelStyle;
@property(copy) NSString* keyEquivalent;
@end
