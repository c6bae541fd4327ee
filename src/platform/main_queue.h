#pragma once

#include <functional>

#include "base/observable.h"

namespace rondora {

/// The main thread's queue. All code runs on the main thread unless its comment says otherwise.
class MainQueue {
 public:
  using Work = std::function<void()>;

  virtual ~MainQueue() = default;

  /// Runs `work` on a later turn of the main loop. May be called from any thread.
  virtual void async(Work work) = 0;
  /// Runs `work` once, `seconds` (0 or more) from now.
  virtual void after(double seconds, Work work) = 0;
  /// As `after`, but destroying or resetting the result before it has run cancels it.
  [[nodiscard]] virtual Subscription workItem(double seconds, Work work) = 0;
  /// Runs `work` every `interval` seconds until the result is reset or destroyed; each tick may be up to `tolerance`
  /// seconds late. `work` may reset its own timer.
  [[nodiscard]] virtual Subscription timer(double interval, double tolerance, Work work) = 0;
};

}  // namespace rondora
