// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nsnumber.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSObjCRuntime.h>

@interface NSNumber : NSObject
+ (NSNumber*)numberWithInteger:(NSInteger)value;
@end
