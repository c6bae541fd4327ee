// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/iokit (IOKitLib.h). A Mac
// compiles against its own SDK instead.
#pragma once

// Library: /System/Library/Frameworks/IOKit.framework/Versions/A/IOKit

#include <CoreFoundation/CoreFoundation.h>
#include <mach/mach_types.h>

#ifdef __cplusplus
extern "C" {
#endif

// io_object_t, io_iterator_t, IONotificationPortRef, kIOMainPortDefault
typedef mach_port_t io_object_t;
typedef io_object_t io_iterator_t;
typedef io_object_t io_service_t;
#define IO_OBJECT_NULL ((io_object_t)0)
typedef struct IONotificationPort* IONotificationPortRef;
typedef char io_name_t[128];
extern const mach_port_t kIOMainPortDefault;
#define kIOFirstMatchNotification "IOServiceFirstMatch"

// IOServiceMatchingCallback, IOServiceAddMatchingNotification, IOServiceMatching
typedef void (*IOServiceMatchingCallback)(void* refcon, io_iterator_t iterator);
IONotificationPortRef IONotificationPortCreate(mach_port_t mainPort);
void IONotificationPortDestroy(IONotificationPortRef notify);
CFRunLoopSourceRef IONotificationPortGetRunLoopSource(IONotificationPortRef notify);
CFMutableDictionaryRef IOServiceMatching(const char* name);
io_service_t IOServiceGetMatchingService(mach_port_t mainPort, CFDictionaryRef matching);
kern_return_t IOServiceAddMatchingNotification(IONotificationPortRef notifyPort, const io_name_t notificationType,
                                               CFDictionaryRef matching, IOServiceMatchingCallback callback,
                                               void* refCon, io_iterator_t* notification);
kern_return_t IOServiceGetMatchingServices(mach_port_t mainPort, CFDictionaryRef matching, io_iterator_t* existing);
io_object_t IOIteratorNext(io_iterator_t iterator);
kern_return_t IOObjectRelease(io_object_t object);

// IORegistryEntryCreateCFProperty
typedef io_object_t io_registry_entry_t;
typedef UInt32 IOOptionBits;
CFTypeRef IORegistryEntryCreateCFProperty(io_registry_entry_t entry, CFStringRef key, CFAllocatorRef allocator,
                                          IOOptionBits options);

#ifdef __cplusplus
}
#endif
