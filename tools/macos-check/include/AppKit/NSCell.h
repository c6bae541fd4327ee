// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nscell.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSUInteger, NSCellImagePosition) { NSImageOnly = 1, NSImageLeading = 7 };

@interface NSCell : NSObject
@property(strong) id representedObject;
@end
