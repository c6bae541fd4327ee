// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nsdata.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSObjCRuntime.h>

@interface NSData : NSObject
@property(readonly) NSUInteger length;
@property(readonly) const void* bytes;
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length;
@end
