#pragma once

#include <cstddef>
#include <mutex>
#include <string_view>

#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {

/// Opens /dev/null in place of the descriptors 0 to 2 that the process was started without: otherwise the next sockets
/// and files would receive what is written to them. Before anything else is opened.
void openStandardDescriptors();

/// Writes lines to a descriptor that another process may read, and never blocks: a line that the reader does not accept
/// at once is dropped, and the number of dropped lines precedes the next one. The process must ignore SIGPIPE. Any
/// thread.
class LineOutput {
 public:
  /// The descriptor must outlive the object. Its own flags stay as they are, because other processes share them.
  explicit LineOutput(int descriptor);

  /// Appends the line end. Cuts a line of more than 4 KiB: the longest that a pipe accepts in one piece.
  void write(std::string_view line);

 private:
  bool send(std::string_view text) const;

  int descriptor_;
  bool isSocket_ = false;
  /// The same pipe or terminal without blocking; not open for other files, which never block.
  FileDescriptor nonBlocking_;
  bool mayBlock_ = false;
  std::size_t dropped_ = 0;
  std::mutex mutex_;
};

}  // namespace rondora::desktop
