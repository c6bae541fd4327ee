#pragma once

#include <array>
#include <bitset>
#include <chrono>
#include <cstddef>
#include <functional>

#include "base/observable.h"
#include "platform/linux/x11/guard/input_guard.h"
#include "platform/linux/x11/x11_backends.h"
#include "platform/main_queue.h"

namespace rondora::x11 {

/// Reports to the guard that the main loop runs, and replaces a guard that died. It reports only while the program
/// holds a typed key or a grab that does not end with its key: those of the ring, a recording, a key that outlasts the
/// ring, or Fn. Main thread.
class GuardLink {
 public:
  /// Calls `readable` on the main loop whenever the descriptor is readable, until the result is destroyed.
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  /// The references must outlive the object.
  GuardLink(InputGuard& guard, X11Backends& display, MainQueue& mainQueue, WatchReadable watchReadable);

 private:
  template <class Holder>
  void follow(std::size_t index, Holder& holder);
  void grabsChanged();
  void typing(bool isDown);
  void watchGuard();
  void guardDied();

  InputGuard& guard_;
  MainQueue& mainQueue_;
  WatchReadable watchReadable_;
  static constexpr std::size_t kHolders = 4;
  /// Those that hold a grab.
  std::bitset<kHolders> holding_;
  std::array<Subscription, kHolders> holders_;
  Subscription typingObserver_;
  /// Runs while a grab is held.
  Subscription beats_;
  Subscription guardWatch_;
  Subscription replacement_;
  std::chrono::steady_clock::time_point nextReplacement_{};
};

}  // namespace rondora::x11
