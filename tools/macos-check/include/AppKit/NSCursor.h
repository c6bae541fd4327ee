// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nscursor.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@interface NSCursor : NSObject
@property(class, readonly, strong) NSCursor* arrowCursor;
@property(class, readonly, strong) NSCursor* pointingHandCursor;
- (void)set;
@end
