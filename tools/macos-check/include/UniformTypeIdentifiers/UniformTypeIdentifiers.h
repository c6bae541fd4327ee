// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/uniformtypeidentifiers/uttype. A Mac compiles against its own SDK instead.
#pragma once

// Library: /System/Library/Frameworks/UniformTypeIdentifiers.framework/Versions/A/UniformTypeIdentifiers

#include <Foundation/Foundation.h>

@interface UTType : NSObject
+ (UTType*)typeWithFilenameExtension:(NSString*)filenameExtension;
@end
