// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsscreen.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@interface NSScreen : NSObject
@end
