// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsbezierpath.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

@interface NSBezierPath : NSObject
@property CGFloat lineWidth;
+ (NSBezierPath*)bezierPath;
+ (NSBezierPath*)bezierPathWithOvalInRect:(NSRect)rect;
- (void)appendBezierPathWithArcWithCenter:(NSPoint)center
                                   radius:(CGFloat)radius
                               startAngle:(CGFloat)startAngle
                                 endAngle:(CGFloat)endAngle;
- (void)moveToPoint:(NSPoint)point;
- (void)lineToPoint:(NSPoint)point;
- (void)stroke;
- (void)fill;
@end
