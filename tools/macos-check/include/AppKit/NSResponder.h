// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsresponder.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@interface NSResponder : NSObject
@end
