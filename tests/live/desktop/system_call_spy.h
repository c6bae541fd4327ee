#pragma once

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace rondora::desktop {

/// Records the calls of this process that bring a file to disk, and can make them fail or kill the process. Replaces
/// the C library's functions. One instance at a time, one thread.
class SystemCallSpy {
 public:
  /// The call of that name, or "create", fails with that error; empty for none.
  explicit SystemCallSpy(std::string failing = {}, int withError = 0);
  ~SystemCallSpy();
  SystemCallSpy(const SystemCallSpy&) = delete;
  SystemCallSpy& operator=(const SystemCallSpy&) = delete;

  /// Successful calls in order: "write", "fsync file", "fsync folder", "rename".
  std::vector<std::string> calls;
  /// Every other write is interrupted, and the others write at most three bytes.
  bool interruptsWrites = false;
  int writesSoFar = 0;
  std::string failingCall;
  int error = 0;
  /// Later calls of that name succeed.
  int failuresLeft = std::numeric_limits<int>::max();
  /// SIGKILL ends the process before its call of that number that changes files, counted from 1; 0 for none.
  int killingCall = 0;
};

enum class Ending { completed, cut };
/// Runs `action` in a child process that is killed before its call of that number. Throws std::runtime_error when the
/// child fails in any other way.
Ending runUntilCall(int number, const std::function<void()>& action);

}  // namespace rondora::desktop
