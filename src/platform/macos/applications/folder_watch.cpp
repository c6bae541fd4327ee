#include "platform/macos/applications/folder_watch.h"

#include <dispatch/dispatch.h>

#include <utility>

#include "platform/macos/foundation/cf_values.h"

namespace rondora::macos {
namespace {

/// An installation writes many files; they are one change.
constexpr CFTimeInterval kLatency = 2;

CFRef<CFArrayRef> pathsOf(const std::vector<std::string>& folders) {
  std::vector<CFRef<CFStringRef>> paths;
  for (const std::string& folder : folders) {
    if (auto path = makeString(folder)) paths.push_back(std::move(path));
  }
  return makeArray(paths);
}

}  // namespace

FolderWatch::FolderWatch(const std::vector<std::string>& folders, std::function<void()> changed)
    : changed_(std::move(changed)) {
  FSEventStreamContext context{};
  context.info = this;
  stream_ = FSEventStreamCreate(kCFAllocatorDefault, deliver, &context, pathsOf(folders).get(),
                                kFSEventStreamEventIdSinceNow, kLatency, kFSEventStreamCreateFlagNone);
  if (stream_ == nullptr) return;
  FSEventStreamSetDispatchQueue(stream_, dispatch_get_main_queue());
  FSEventStreamStart(stream_);
}

FolderWatch::~FolderWatch() {
  if (stream_ == nullptr) return;
  FSEventStreamStop(stream_);
  FSEventStreamInvalidate(stream_);
  FSEventStreamRelease(stream_);
}

void FolderWatch::deliver(ConstFSEventStreamRef /*stream*/, void* self, std::size_t /*count*/, void* /*paths*/,
                          const FSEventStreamEventFlags* /*flags*/, const FSEventStreamEventId* /*identifiers*/) {
  static_cast<FolderWatch*>(self)->changed_();
}

}  // namespace rondora::macos
