// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/foundation/nsfilemanager.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSString.h>

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager* defaultManager;
- (BOOL)fileExistsAtPath:(NSString*)path;
- (NSString*)displayNameAtPath:(NSString*)path;
@end
