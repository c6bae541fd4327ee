// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nspanel.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSWindow.h>

@interface NSPanel : NSWindow
@property(getter=isFloatingPanel) BOOL floatingPanel;
@end
