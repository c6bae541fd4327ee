#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <string_view>

#include "base/observable.h"
#include "platform/posix/file_descriptor.h"
#include "platform/workspace.h"

namespace rondora::desktop {

/// Child processes that outlive their launch: records how each ended, so that none stays a zombie. Main thread.
class StartedProcesses {
 public:
  /// Calls `readable` whenever the descriptor is readable, until the result is destroyed.
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  explicit StartedProcesses(WatchReadable watchReadable) : watchReadable_(std::move(watchReadable)) {}

  /// `process` is a child that was started for the application; 0 when another program started it.
  void add(std::string_view application, std::int32_t process);
  /// The state of the process that was added last for the application.
  StartedProcess state(std::string_view application) const;

 private:
  struct Child {
    std::string application;
    std::int32_t process = 0;
    FileDescriptor descriptor;
    Subscription ended;
  };
  struct Last {
    std::int32_t process = 0;
    StartedProcess state = StartedProcess::unknown;
  };

  void reap(std::list<Child>::iterator child);

  WatchReadable watchReadable_;
  std::list<Child> children_;
  std::map<std::string, Last, std::less<>> last_;
};

}  // namespace rondora::desktop
