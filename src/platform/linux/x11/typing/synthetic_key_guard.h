#pragma once

namespace rondora::x11 {

/// A companion process that outlives the program by a moment: when the program crashes or is killed while it holds a
/// key, the guard releases every key of the XTEST keyboard. When the guard is killed too, XTestKeyPoster does so at the
/// next start.
class SyntheticKeyGuard {
 public:
  /// Call it before any thread starts. When fork fails there is no guard.
  SyntheticKeyGuard();
  /// The program ends in order: the guard ends without releasing anything.
  ~SyntheticKeyGuard();
  SyntheticKeyGuard(const SyntheticKeyGuard&) = delete;
  SyntheticKeyGuard& operator=(const SyntheticKeyGuard&) = delete;

 private:
  int wordOfTheProgram_ = -1;
};

}  // namespace rondora::x11
