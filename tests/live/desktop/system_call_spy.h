#pragma once

#include <string>
#include <vector>

namespace rondora::desktop {

/// Records the calls of this process that bring a file to disk, and can make them fail. Replaces the C library's
/// functions. One instance at a time, one thread.
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
};

}  // namespace rondora::desktop
