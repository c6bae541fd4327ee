#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace rondora::live {

/// A program started by a test. It ends with the object, or with the test program, even if that crashes.
class ChildProcess {
 public:
  /// `environment` is added to the test's own. A descriptor named in `inheritedDescriptor` stays open in the child.
  /// Throws std::runtime_error when no process can be made; a missing program exits with status 127.
  ChildProcess(const std::vector<std::string>& arguments, const std::map<std::string, std::string>& environment = {},
               int inheritedDescriptor = -1);
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess();

  pid_t pid() const { return pid_; }
  bool isRunning();
  /// All its threads sleep: it has no work left, even if a busy machine delays it.
  bool isWaiting() const { return areAllThreads('S'); }
  /// Waits until a child of it runs that program; a terminal that is closed before may stay.
  bool waitForChild(const std::string& program) const;
  /// Returns once none of its threads runs.
  void stop() const;
  /// Waits for the end; the exit status, or 128 + signal.
  int wait();
  void terminate();

 private:
  void reap(int options);
  bool areAllThreads(char state) const;

  pid_t pid_ = -1;
  int status_ = 0;
};

}  // namespace rondora::live
