// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nscontrol.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSCell.h>
#include <AppKit/NSFont.h>
#include <AppKit/NSView.h>

@interface NSControl : NSView
@property(weak) id target;
@property SEL action;
@property(strong) NSCell* cell;
@property(copy) NSString* stringValue;
@property(strong) NSFont* font;
@end
