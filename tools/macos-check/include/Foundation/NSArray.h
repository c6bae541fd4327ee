// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nsarray.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSObjCRuntime.h>

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
@property(readonly) NSUInteger count;
@property(nonatomic, readonly) ObjectType firstObject;
+ (instancetype)arrayWithObjects:(const ObjectType[])objects count:(NSUInteger)cnt;
- (ObjectType)objectAtIndexedSubscript:(NSUInteger)idx;
@end

// NSMutableArray
@interface NSMutableArray<ObjectType> : NSArray <ObjectType>
+ (instancetype)array;
- (void)addObject:(ObjectType)anObject;
@end
