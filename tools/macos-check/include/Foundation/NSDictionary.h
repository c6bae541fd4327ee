// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nsdictionary.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSObjCRuntime.h>

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject
@property(readonly) NSUInteger count;
- (ObjectType)objectForKeyedSubscript:(KeyType)key;
+ (instancetype)dictionaryWithObjects:(const ObjectType[])objects
                              forKeys:(const id<NSCopying>[])keys
                                count:(NSUInteger)cnt;
@end
