// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsresponder.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSEvent.h>
#include <Foundation/Foundation.h>

// NSStandardKeyBindingResponding
@protocol NSStandardKeyBindingResponding <NSObject>
@optional
- (void)cancelOperation:(id)sender;
@end

@interface NSResponder : NSObject <NSStandardKeyBindingResponding>
@property(readonly) BOOL acceptsFirstResponder;
- (void)mouseDown:(NSEvent*)event;
- (void)mouseMoved:(NSEvent*)event;
- (void)mouseEntered:(NSEvent*)event;
- (void)mouseExited:(NSEvent*)event;
- (void)cursorUpdate:(NSEvent*)event;
- (void)keyDown:(NSEvent*)event;
- (BOOL)performKeyEquivalent:(NSEvent*)event;
@end
