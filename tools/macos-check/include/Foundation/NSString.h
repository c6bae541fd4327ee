// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nsstring.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSObjCRuntime.h>

typedef NS_ENUM(NSUInteger, NSStringEncoding) { NSUTF8StringEncoding = 4 };

@interface NSString : NSObject <NSCopying>
@property(readonly) const char* UTF8String;
@property(readonly) NSUInteger length;
- (instancetype)initWithBytes:(const void*)bytes length:(NSUInteger)len encoding:(NSStringEncoding)encoding;
- (BOOL)isEqualToString:(NSString*)aString;
@end

// NSStringFromSelector
FOUNDATION_EXPORT NSString* NSStringFromSelector(SEL aSelector);
