#pragma once

#include <functional>

#include "base/observable.h"
#include "platform/clock.h"
#include "platform/main_queue.h"

namespace rondora {

/// Reports when no input has come for `kMaxIdleSeconds`. Noting input allocates nothing. The ports must outlive it.
/// Main thread.
class IdleWatch {
 public:
  static constexpr double kMaxIdleSeconds = 20;

  IdleWatch(MainQueue& mainQueue, const Clock& clock) : mainQueue_(mainQueue), clock_(clock) {}

  /// Replaces an earlier watch. A key that `isHeld` reports counts as input; `onIdle` is called once.
  void begin(std::function<bool()> isHeld, std::function<void()> onIdle);
  void noteInput() { lastInputAt_ = clock_.uptime(); }
  void end() { check_.reset(); }

 private:
  void checkAfter(double seconds);
  void check();

  MainQueue& mainQueue_;
  const Clock& clock_;
  std::function<bool()> isHeld_;
  std::function<void()> onIdle_;
  double lastInputAt_ = 0;
  Subscription check_;
};

}  // namespace rondora
