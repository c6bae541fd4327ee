// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/applicationservices, the
// umbrella of Core Graphics and the accessibility interface; the page of each group stands above it. A Mac compiles
// against its own SDK instead.
#pragma once

// Library: /System/Library/Frameworks/ApplicationServices.framework/Versions/A/ApplicationServices

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>
#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

// AXError
typedef CF_ENUM(SInt32, AXError) { kAXErrorSuccess = 0 };

// AXUIElement, AXCopyMultipleAttributeOptions
typedef const struct __AXUIElement* AXUIElementRef;
typedef CF_OPTIONS(UInt32, AXCopyMultipleAttributeOptions) { kAXCopyMultipleAttributeOptionStopOnError = 0x1 };
CFTypeID AXUIElementGetTypeID(void);
AXUIElementRef AXUIElementCreateApplication(pid_t pid);
AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef* value);
AXError AXUIElementCopyMultipleAttributeValues(AXUIElementRef element, CFArrayRef attributes,
                                               AXCopyMultipleAttributeOptions options, CFArrayRef* values);
AXError AXUIElementIsAttributeSettable(AXUIElementRef element, CFStringRef attribute, Boolean* settable);
AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value);
AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds);

// AXIsProcessTrusted, AXIsProcessTrustedWithOptions, kAXTrustedCheckOptionPrompt
extern CFStringRef kAXTrustedCheckOptionPrompt;
Boolean AXIsProcessTrusted(void);
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);

// AXValue, AXValueType
typedef const struct __AXValue* AXValueRef;
typedef CF_ENUM(UInt32, AXValueType) { kAXValueTypeCGPoint = 1, kAXValueTypeCGSize = 2 };
CFTypeID AXValueGetTypeID(void);
AXValueRef AXValueCreate(AXValueType theType, const void* valuePtr);
Boolean AXValueGetValue(AXValueRef value, AXValueType theType, void* valuePtr);

#ifdef __cplusplus
}
#endif
