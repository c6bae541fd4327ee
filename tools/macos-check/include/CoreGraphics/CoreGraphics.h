// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/coregraphics; the page of
// each group stands above it. A Mac compiles against its own SDK instead.
#pragma once

// Library: /System/Library/Frameworks/CoreGraphics.framework/Versions/A/CoreGraphics

#include <CoreFoundation/CoreFoundation.h>
#include <stdbool.h>
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

// CGWindowListCopyWindowInfo, CGWindowListOption, Quartz Window Services: required and optional window list keys
typedef uint32_t CGWindowID;
typedef CF_OPTIONS(uint32_t, CGWindowListOption) { kCGWindowListExcludeDesktopElements = 1 << 4 };
enum { kCGNullWindowID = 0 };
CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption option, CGWindowID relativeToWindow);

#ifdef __cplusplus
}
#endif
