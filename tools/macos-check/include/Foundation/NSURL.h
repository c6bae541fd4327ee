// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nsurl.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSString.h>

@interface NSURL : NSObject
@property(readonly, copy) NSString* path;
+ (instancetype)URLWithString:(NSString*)URLString;
+ (NSURL*)fileURLWithPath:(NSString*)path;
@end
