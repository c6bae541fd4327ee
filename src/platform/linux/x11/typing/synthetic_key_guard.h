#pragma once

namespace rondora::x11 {

/// A small process beside the program that outlives it by a moment: when the program ends without a word (a crash, or
/// SIGKILL, while a key is pressed), it lets go of whatever the XTEST keyboard holds. Where the guard is killed too,
/// XTestKeyPoster does so at the next start.
class SyntheticKeyGuard {
 public:
  /// Call it first of all, before there are threads. Without a process to spare there is no guard.
  SyntheticKeyGuard();
  /// The program ends in order: nothing is left to do.
  ~SyntheticKeyGuard();
  SyntheticKeyGuard(const SyntheticKeyGuard&) = delete;
  SyntheticKeyGuard& operator=(const SyntheticKeyGuard&) = delete;

 private:
  int wordOfTheProgram_ = -1;
};

}  // namespace rondora::x11
