// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/coretext; the page of each
// group stands above it. A Mac compiles against its own SDK instead.
#pragma once

// Library: /System/Library/Frameworks/CoreText.framework/Versions/A/CoreText

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>

#ifdef __cplusplus
extern "C" {
#endif

// CTFont
typedef const struct __CTFont* CTFontRef;
CTFontRef CTFontCreateWithName(CFStringRef name, CGFloat size, const CGAffineTransform* matrix);
CGFloat CTFontGetAscent(CTFontRef font);
CGFloat CTFontGetDescent(CTFontRef font);
CGFloat CTFontGetLeading(CTFontRef font);

// String attributes
extern const CFStringRef kCTFontAttributeName;
extern const CFStringRef kCTForegroundColorFromContextAttributeName;

// CTLine
typedef const struct __CTLine* CTLineRef;
CTLineRef CTLineCreateWithAttributedString(CFAttributedStringRef attrString);
CGRect CTLineGetImageBounds(CTLineRef line, CGContextRef context);
double CTLineGetPenOffsetForFlush(CTLineRef line, CGFloat flushFactor, double flushWidth);
double CTLineGetTypographicBounds(CTLineRef line, CGFloat* ascent, CGFloat* descent, CGFloat* leading);
void CTLineDraw(CTLineRef line, CGContextRef context);

#ifdef __cplusplus
}
#endif
