#pragma once

#include <CoreServices/CoreServices.h>

#include <functional>
#include <string>
#include <vector>

namespace rondora::macos {

/// Calls on the main queue, a moment after files were added to these folders, changed in them or removed. A folder need
/// not exist yet. Main thread.
class FolderWatch {
 public:
  FolderWatch(const std::vector<std::string>& folders, std::function<void()> changed);
  ~FolderWatch();
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

 private:
  static void deliver(ConstFSEventStreamRef stream, void* self, std::size_t count, void* paths,
                      const FSEventStreamEventFlags* flags, const FSEventStreamEventId* identifiers);

  std::function<void()> changed_;
  /// Null when the system makes none.
  FSEventStreamRef stream_ = nullptr;
};

}  // namespace rondora::macos
