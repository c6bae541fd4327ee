// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/coreservices/file_system_events. A Mac compiles against its own SDK instead.
#pragma once

// Library: /System/Library/Frameworks/CoreServices.framework/Versions/A/CoreServices

#include <CoreFoundation/CoreFoundation.h>
#include <dispatch/dispatch.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// FSEventStreamRef, FSEventStreamContext, FSEventStreamCallback
typedef UInt32 FSEventStreamCreateFlags;
typedef UInt32 FSEventStreamEventFlags;
typedef UInt64 FSEventStreamEventId;
typedef struct __FSEventStream* FSEventStreamRef;
typedef const struct __FSEventStream* ConstFSEventStreamRef;
typedef struct FSEventStreamContext {
  CFIndex version;
  void* info;
  const void* (*retain)(const void* info);
  void (*release)(const void* info);
  CFStringRef (*copyDescription)(const void* info);
} FSEventStreamContext;
typedef void (*FSEventStreamCallback)(ConstFSEventStreamRef streamRef, void* clientCallBackInfo, size_t numEvents,
                                      void* eventPaths, const FSEventStreamEventFlags* eventFlags,
                                      const FSEventStreamEventId* eventIds);
enum : FSEventStreamCreateFlags { kFSEventStreamCreateFlagNone = 0 };
enum : FSEventStreamEventId { kFSEventStreamEventIdSinceNow = 0xFFFFFFFFFFFFFFFFULL };

// FSEventStreamCreate and what its stream takes
FSEventStreamRef FSEventStreamCreate(CFAllocatorRef allocator, FSEventStreamCallback callback,
                                     FSEventStreamContext* context, CFArrayRef pathsToWatch,
                                     FSEventStreamEventId sinceWhen, CFTimeInterval latency,
                                     FSEventStreamCreateFlags flags);
void FSEventStreamSetDispatchQueue(FSEventStreamRef streamRef, dispatch_queue_t q);
Boolean FSEventStreamStart(FSEventStreamRef streamRef);
void FSEventStreamStop(FSEventStreamRef streamRef);
void FSEventStreamInvalidate(FSEventStreamRef streamRef);
void FSEventStreamRelease(FSEventStreamRef streamRef);

#ifdef __cplusplus
}
#endif
