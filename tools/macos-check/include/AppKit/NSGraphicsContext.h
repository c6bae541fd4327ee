// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsgraphicscontext.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>

@interface NSGraphicsContext : NSObject
@property(class, strong) NSGraphicsContext* currentContext;
@property(readonly) CGContextRef CGContext;
@end
