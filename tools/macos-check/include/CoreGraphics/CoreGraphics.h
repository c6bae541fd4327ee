// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/coregraphics; the page of
// each group stands above it. A Mac compiles against its own SDK instead.
#pragma once

// Library: /System/Library/Frameworks/CoreGraphics.framework/Versions/A/CoreGraphics

#include <CoreFoundation/CoreFoundation.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

// CGError
typedef CF_ENUM(int32_t, CGError) { kCGErrorSuccess = 0 };

// CGEventRef, CGEventSourceRef, CGEventFlags, CGEventType, CGEventField
typedef struct __CGEvent* CGEventRef;
typedef struct __CGEventSource* CGEventSourceRef;
typedef uint16_t CGKeyCode;
typedef CF_OPTIONS(uint64_t, CGEventFlags) {
  kCGEventFlagMaskShift = 0x20000,
  kCGEventFlagMaskControl = 0x40000,
  kCGEventFlagMaskAlternate = 0x80000,
  kCGEventFlagMaskCommand = 0x100000,
  kCGEventFlagMaskNumericPad = 0x200000,
  kCGEventFlagMaskSecondaryFn = 0x800000
};
typedef CF_ENUM(uint32_t, CGEventType) {
  kCGEventKeyDown = 10,
  kCGEventKeyUp = 11,
  kCGEventFlagsChanged = 12,
  kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
  kCGEventTapDisabledByUserInput = 0xFFFFFFFF
};
typedef CF_ENUM(uint32_t, CGEventField) { kCGKeyboardEventAutorepeat = 8, kCGKeyboardEventKeycode = 9 };
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode virtualKey, bool keyDown);
CGEventFlags CGEventGetFlags(CGEventRef event);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field);

// CGEventSourceStateID, CGEventSourceCreate
typedef CF_ENUM(int32_t, CGEventSourceStateID) {
  kCGEventSourceStatePrivate = -1,
  kCGEventSourceStateHIDSystemState = 1
};
CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID stateID);

// CGEventTapLocation, CGEventTapPlacement, CGEventTapOptions, CGEventTapCallBack, CGEventTapInformation, CGEventMask
typedef CF_ENUM(uint32_t, CGEventTapLocation) { kCGHIDEventTap = 0, kCGSessionEventTap = 1 };
typedef CF_ENUM(uint32_t, CGEventTapPlacement) { kCGHeadInsertEventTap = 0 };
typedef CF_ENUM(uint32_t, CGEventTapOptions) { kCGEventTapOptionDefault = 0 };
typedef uint64_t CGEventMask;
typedef struct __CGEventTapProxy* CGEventTapProxy;
typedef CGEventRef (*CGEventTapCallBack)(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* userInfo);
typedef struct __CGEventTapInformation {
  uint32_t eventTapID;
  CGEventTapLocation tapPoint;
  CGEventTapOptions options;
  CGEventMask eventsOfInterest;
  pid_t tappingProcess;
  pid_t processBeingTapped;
  bool enabled;
  float minUsecLatency;
  float avgUsecLatency;
  float maxUsecLatency;
} CGEventTapInformation;
CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
                               CGEventMask eventsOfInterest, CGEventTapCallBack callback, void* userInfo);
void CGEventTapEnable(CFMachPortRef tap, bool enable);
CGError CGGetEventTapList(uint32_t maxNumberOfTaps, CGEventTapInformation* tapList, uint32_t* eventTapCount);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);

// CGColorSpace
typedef struct CGColorSpace* CGColorSpaceRef;
extern const CFStringRef kCGColorSpaceSRGB;
CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name);

// CGImage, CGImageAlphaInfo, CGBitmapInfo
typedef struct CGImage* CGImageRef;
size_t CGImageGetWidth(CGImageRef image);
size_t CGImageGetHeight(CGImageRef image);
typedef CF_ENUM(uint32_t, CGImageAlphaInfo) { kCGImageAlphaPremultipliedFirst = 2 };
typedef CF_OPTIONS(uint32_t, CGBitmapInfo) { kCGBitmapByteOrder32Little = 2 << 12 };

// CGAffineTransform
typedef struct CGAffineTransform {
  CGFloat a, b, c, d;
  CGFloat tx, ty;
} CGAffineTransform;
CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);

// CGPath, CGMutablePath
typedef const struct CGPath* CGPathRef;
typedef struct CGPath* CGMutablePathRef;
CGMutablePathRef CGPathCreateMutable(void);
void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y);
void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y);
void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x,
                           CGFloat cp2y, CGFloat x, CGFloat y);
void CGPathCloseSubpath(CGMutablePathRef path);
CGPathRef CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                      const CGAffineTransform* transform);

// CGContext
typedef struct CGContext* CGContextRef;
CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
                                   CGColorSpaceRef space, uint32_t bitmapInfo);
void CGContextDrawImage(CGContextRef c, CGRect rect, CGImageRef image);
typedef CF_ENUM(int32_t, CGInterpolationQuality) { kCGInterpolationLow = 2, kCGInterpolationHigh = 3 };
void CGContextSetShouldSmoothFonts(CGContextRef c, bool shouldSmoothFonts);
void CGContextSetInterpolationQuality(CGContextRef c, CGInterpolationQuality quality);
void CGContextAddPath(CGContextRef c, CGPathRef path);
void CGContextSetRGBFillColor(CGContextRef c, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
void CGContextFillPath(CGContextRef c);
bool CGContextIsPathEmpty(CGContextRef c);
typedef CF_ENUM(int32_t, CGBlendMode) {
  kCGBlendModeNormal = 0,
  kCGBlendModeCopy = 17,
  kCGBlendModeSourceIn = 18,
  kCGBlendModePlusLighter = 27
};
typedef CF_ENUM(int32_t, CGLineCap) { kCGLineCapRound = 1 };
typedef CF_ENUM(int32_t, CGLineJoin) { kCGLineJoinRound = 1 };
CGImageRef CGBitmapContextCreateImage(CGContextRef context);
void CGContextSaveGState(CGContextRef c);
void CGContextRestoreGState(CGContextRef c);
void CGContextScaleCTM(CGContextRef c, CGFloat sx, CGFloat sy);
void CGContextTranslateCTM(CGContextRef c, CGFloat tx, CGFloat ty);
void CGContextSetAlpha(CGContextRef c, CGFloat alpha);
void CGContextSetBlendMode(CGContextRef c, CGBlendMode mode);
void CGContextSetLineCap(CGContextRef c, CGLineCap cap);
void CGContextSetLineJoin(CGContextRef c, CGLineJoin join);
void CGContextSetLineWidth(CGContextRef c, CGFloat width);
void CGContextReplacePathWithStrokedPath(CGContextRef c);
void CGContextClip(CGContextRef c);
void CGContextClipToRect(CGContextRef c, CGRect rect);
void CGContextClearRect(CGContextRef c, CGRect rect);
void CGContextFillRect(CGContextRef c, CGRect rect);
void CGContextSetRGBStrokeColor(CGContextRef c, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
void CGContextStrokePath(CGContextRef c);
void CGContextSetTextMatrix(CGContextRef c, CGAffineTransform t);
void CGContextSetTextPosition(CGContextRef c, CGFloat x, CGFloat y);

// CGGradient
typedef struct CGGradient* CGGradientRef;
typedef CF_OPTIONS(uint32_t, CGGradientDrawingOptions) {
  kCGGradientDrawsBeforeStartLocation = 1 << 0,
  kCGGradientDrawsAfterEndLocation = 1 << 1
};
CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat* components,
                                                  const CGFloat* locations, size_t count);
void CGContextDrawLinearGradient(CGContextRef c, CGGradientRef gradient, CGPoint startPoint, CGPoint endPoint,
                                 CGGradientDrawingOptions options);
void CGContextDrawRadialGradient(CGContextRef c, CGGradientRef gradient, CGPoint startCenter, CGFloat startRadius,
                                 CGPoint endCenter, CGFloat endRadius, CGGradientDrawingOptions options);

// CGPreflightListenEventAccess, CGRequestListenEventAccess
bool CGPreflightListenEventAccess(void);
bool CGRequestListenEventAccess(void);

// CGWindowListCopyWindowInfo, CGWindowListOption, Quartz Window Services: required and optional window list keys
typedef uint32_t CGWindowID;
typedef CF_OPTIONS(uint32_t, CGWindowListOption) { kCGWindowListExcludeDesktopElements = 1 << 4 };
enum { kCGNullWindowID = 0 };
CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption option, CGWindowID relativeToWindow);

#ifdef __cplusplus
}
#endif
