// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsmenuitem.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSImage.h>
#include <AppKit/NSMenu.h>

@interface NSMenuItem : NSObject
@property(copy) NSString* title;
@property(copy) NSString* keyEquivalent;
@property(strong) NSImage* image;
@property(weak) id target;
@property SEL action;
@property(strong) id representedObject;
@property(strong) NSMenu* submenu;
- (instancetype)initWithTitle:(NSString*)string action:(SEL)selector keyEquivalent:(NSString*)charCode;
+ (NSMenuItem*)separatorItem;
@end
