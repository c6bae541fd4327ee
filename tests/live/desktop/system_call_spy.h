#pragma once

#include <string>
#include <vector>

namespace rondora::desktop {

/// Notes the calls of this process that bring a file to disk, and makes them misbehave as real ones may. Its versions
/// of these calls stand before those of the C library. One at a time, one thread.
class SystemCallSpy {
 public:
  /// The call of that name, or "create", fails with that error; none where it is empty.
  explicit SystemCallSpy(std::string failing = {}, int withError = 0);
  ~SystemCallSpy();
  SystemCallSpy(const SystemCallSpy&) = delete;
  SystemCallSpy& operator=(const SystemCallSpy&) = delete;

  /// "write", "fsync file", "fsync folder", "rename", in the order in which they succeeded.
  std::vector<std::string> calls;
  /// Every other write is interrupted, and none takes more than three bytes.
  bool writesAreTroubled = false;
  int writesSoFar = 0;
  std::string failingCall;
  int error = 0;
};

}  // namespace rondora::desktop
