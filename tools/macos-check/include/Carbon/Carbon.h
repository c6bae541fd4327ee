// Declarations for tools/check-macos, written by hand. Carbon's reference has left the documentation's present edition;
// the names stand in its archive as "Carbon Event Manager Reference".
#pragma once

// Library: /System/Library/Frameworks/Carbon.framework/Versions/A/Carbon

#include <ApplicationServices/ApplicationServices.h>
#include <MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

// Carbon Event Manager Reference: events and their parameters
typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef OSType EventParamName;
typedef OSType EventParamType;
typedef double EventTime;
enum { kEventClassKeyboard = 'keyb' };
enum { kEventHotKeyPressed = 5, kEventHotKeyReleased = 6 };
enum { kEventParamDirectObject = '----', typeEventHotKeyID = 'hkid' };
typedef struct EventTypeSpec {
  OSType eventClass;
  UInt32 eventKind;
} EventTypeSpec;
typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef inHandlerCallRef, EventRef inEvent, void* inUserData);
typedef EventHandlerProcPtr EventHandlerUPP;
EventTargetRef GetApplicationEventTarget(void);
OSStatus InstallEventHandler(EventTargetRef inTarget, EventHandlerUPP inHandler, ItemCount inNumTypes,
                             const EventTypeSpec* inList, void* inUserData, EventHandlerRef* outRef);
OSStatus RemoveEventHandler(EventHandlerRef inHandlerRef);
UInt32 GetEventKind(EventRef inEvent);
EventTime GetEventTime(EventRef inEvent);
EventTime GetCurrentEventTime(void);
OSStatus GetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inDesiredType,
                           EventParamType* outActualType, ByteCount inBufferSize, ByteCount* outActualSize,
                           void* outData);

// Carbon Event Manager Reference: hot keys
typedef struct OpaqueEventHotKeyRef* EventHotKeyRef;
typedef struct EventHotKeyID {
  OSType signature;
  UInt32 id;
} EventHotKeyID;
OSStatus RegisterEventHotKey(UInt32 inHotKeyCode, UInt32 inHotKeyModifiers, EventHotKeyID inHotKeyID,
                             EventTargetRef inTarget, OptionBits inOptions, EventHotKeyRef* outRef);
OSStatus UnregisterEventHotKey(EventHotKeyRef inHotKey);

// Carbon Event Manager Reference: modifiers and virtual key codes
enum { cmdKey = 1 << 8, shiftKey = 1 << 9, optionKey = 1 << 11, controlKey = 1 << 12 };
enum { kEventKeyModifierFnMask = 1 << 17 };
enum { kVK_Tab = 0x30, kVK_Escape = 0x35, kVK_Function = 0x3F };

// Archive: Carbon Event Manager Reference
enum { kHIHotKeyModeAllDisabled = 1 << 0 };
void* PushSymbolicHotKeyMode(OptionBits inOptions);
void PopSymbolicHotKeyMode(void* inToken);

// Technical Note TN2150, Using Secure Event Input Fairly
Boolean IsSecureEventInputEnabled(void);

#ifdef __cplusplus
}
#endif
