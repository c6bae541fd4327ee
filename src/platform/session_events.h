#pragma once

#include <functional>

#include "base/observable.h"

namespace rondora {

/// What the user's session announces. Main thread.
class SessionEvents {
 public:
  virtual ~SessionEvents() = default;

  /// Called when the screen is being locked or blanked, or the machine is about to sleep; sometimes more than once.
  [[nodiscard]] virtual Subscription onLockOrSleep(std::function<void()> observer) = 0;
  /// Called when the machine has woken from sleep.
  [[nodiscard]] virtual Subscription onDidWake(std::function<void()> observer) = 0;
};

}  // namespace rondora
