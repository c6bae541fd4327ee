// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation
// (NSHomeDirectory, NSSearchPathForDirectoriesInDomains).
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSArray.h>
#include <Foundation/NSString.h>

typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) { NSCachesDirectory = 13, NSApplicationSupportDirectory = 14 };
typedef NS_OPTIONS(NSUInteger, NSSearchPathDomainMask) { NSUserDomainMask = 1 };

FOUNDATION_EXPORT NSString* NSHomeDirectory(void);
FOUNDATION_EXPORT NSArray<NSString*>* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                                          NSSearchPathDomainMask domainMask,
                                                                          BOOL expandTilde);
