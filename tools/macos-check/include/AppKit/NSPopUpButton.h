// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nspopupbutton.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSButton.h>
#include <AppKit/NSMenu.h>

@interface NSPopUpButton : NSButton
@property(strong) NSMenu* menu;
- (instancetype)initWithFrame:(NSRect)buttonFrame pullsDown:(BOOL)flag;
- (void)selectItemAtIndex:(NSInteger)index;
@end
