// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nsvalue.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSObjCRuntime.h>

@interface NSValue : NSObject
@end

// NSNumber
@interface NSNumber : NSValue
+ (NSNumber*)numberWithInteger:(NSInteger)value;
@end
