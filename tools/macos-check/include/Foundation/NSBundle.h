// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/foundation/nsbundle.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSURL.h>

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
@property(readonly, copy) NSURL* bundleURL;
@property(readonly, copy) NSString* executablePath;
@end
