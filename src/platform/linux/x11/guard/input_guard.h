#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/linux/x11/guard/guard_process.h"

namespace rondora::x11 {

/// A companion process that outlives the program for a moment (see runGuard): it releases the keys that the program
/// holds when it crashes, and takes keyboard and pointer back from a program that hangs. When the guard is killed too,
/// XTestKeyPoster releases the keys at the next start. Main thread.
class InputGuard {
 public:
  /// `arguments` are those of `main`. Construct it before any thread starts and before the environment is changed.
  /// Without a working fork there is no guard.
  explicit InputGuard(char** arguments);
  /// Orderly exit: the guard ends without releasing keys.
  ~InputGuard();
  InputGuard(const InputGuard&) = delete;
  InputGuard& operator=(const InputGuard&) = delete;

  /// The guard of an earlier program killed it because it hung, and started this one.
  bool followsAHang() const { return followsAHang_; }

  void send(GuardMessage message) const;
  /// Readable when the guard has died; -1 without a guard.
  int descriptor() const { return socket_; }
  /// Starts a guard in the place of one that died. Does not wait for it; the program may have threads.
  void replace();

 private:
  std::vector<std::string> arguments_;
  std::vector<std::string> environment_;
  bool followsAHang_ = false;
  int socket_ = -1;
  /// A guard that is a child of this process; 0 for none.
  pid_t child_ = 0;
};

}  // namespace rondora::x11
