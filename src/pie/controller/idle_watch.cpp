#include "pie/controller/idle_watch.h"

#include <utility>

namespace rondora {

void IdleWatch::begin(std::function<bool()> isHeld, std::function<void()> onIdle) {
  isHeld_ = std::move(isHeld);
  onIdle_ = std::move(onIdle);
  noteInput();
  checkAfter(kMaxIdleSeconds);
}

void IdleWatch::checkAfter(double seconds) {
  check_ = mainQueue_.workItem(seconds, [this] { check(); });
}

/// `onIdle` is a copy: the call may begin another watch.
void IdleWatch::check() {
  if (isHeld_()) noteInput();
  const double rest = kMaxIdleSeconds - (clock_.uptime() - lastInputAt_);
  if (rest > 0) return checkAfter(rest);
  end();
  const auto onIdle = onIdle_;
  onIdle();
}

}  // namespace rondora
