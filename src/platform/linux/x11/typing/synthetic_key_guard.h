#pragma once

namespace rondora::x11 {

/// A companion process that outlives the program for a moment: when the program crashes or is killed while it holds a
/// key, the guard releases every key of the XTEST keyboard. When the guard is killed too, XTestKeyPoster does so at the
/// next start.
class SyntheticKeyGuard {
 public:
  /// Construct it before any thread starts. Without a working fork there is no guard.
  SyntheticKeyGuard();
  /// Orderly exit: the guard ends without releasing keys.
  ~SyntheticKeyGuard();
  SyntheticKeyGuard(const SyntheticKeyGuard&) = delete;
  SyntheticKeyGuard& operator=(const SyntheticKeyGuard&) = delete;

 private:
  int exitByteEnd_ = -1;
};

}  // namespace rondora::x11
