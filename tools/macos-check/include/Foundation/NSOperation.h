// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/foundation/nsoperationqueue.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSObjCRuntime.h>

@interface NSOperationQueue : NSObject
@property(class, readonly, strong) NSOperationQueue* mainQueue;
@end
