// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsstatusbar.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSButton.h>
#include <AppKit/NSMenu.h>

// NSStatusBar, NSStatusItem, NSStatusBarButton
static const CGFloat NSVariableStatusItemLength = -1.0;
static const CGFloat NSSquareStatusItemLength = -2.0;

@interface NSStatusBarButton : NSButton
@end

@interface NSStatusItem : NSObject
@property(copy) NSString* autosaveName;
@property(getter=isVisible) BOOL visible;
@property(readonly, strong) NSStatusBarButton* button;
@property(strong) NSMenu* menu;
@end

@interface NSStatusBar : NSObject
@property(class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end
