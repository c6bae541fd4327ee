#pragma once

#include <sys/types.h>

#include <string>
#include <utility>

#include "platform/picture_decoder.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/message_channel.h"

namespace rondora::desktop {

/// The program's end of a child process that decodes pictures (picture_service.h). The child is started by the first
/// request, and killed when it takes too long. One thread, but for `interrupt`.
class PictureProcess {
 public:
  /// `program` is the executable file whose `main` serves pictures when it is asked to.
  explicit PictureProcess(std::string program);
  ~PictureProcess() { end(); }
  PictureProcess(const PictureProcess&) = delete;
  PictureProcess& operator=(const PictureProcess&) = delete;

  /// Blocks for a few seconds at most.
  PictureResult decode(const PictureRequest& request);
  /// Ends the child.
  void end();
  /// Makes a `decode` that is under way, and every later one, return at once. Any thread.
  void interrupt();

 private:
  bool start();
  bool spawn(int childEnd);
  PictureResult ask(const PictureRequest& request);

  std::string program_;
  FileDescriptor interruption_;  // readable once interrupted
  FileDescriptor interrupter_;
  MessageChannel channel_;
  pid_t process_ = 0;  // 0: none
};

}  // namespace rondora::desktop
