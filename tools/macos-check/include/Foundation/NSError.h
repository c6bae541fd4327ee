// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nserror.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSString.h>

@interface NSError : NSObject
@property(readonly, copy) NSString* localizedDescription;
@end
