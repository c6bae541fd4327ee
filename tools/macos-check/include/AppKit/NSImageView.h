// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsimageview.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSControl.h>
#include <AppKit/NSImage.h>

@interface NSImageView : NSControl
@property(strong) NSImage* image;
+ (instancetype)imageViewWithImage:(NSImage*)image;
@end
