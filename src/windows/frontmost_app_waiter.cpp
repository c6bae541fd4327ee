#include "windows/frontmost_app_waiter.h"

#include <string>
#include <utility>

namespace rondora {

void FrontmostAppWaiter::poll(std::optional<std::int32_t> pid, WallTime deadline, std::function<void()> then) {
  if (!pid) return then();
  pollUntil({*pid, deadline, clock_.uptime() + (deadline - clock_.now()), std::move(then)});
}

void FrontmostAppWaiter::pollUntil(Wait wait) {
  if (isFrontmost(wait.pid)) return wait.then();
  if (clock_.now() < wait.deadline && clock_.uptime() < wait.latestUptime) {
    mainQueue_.after(kFrontmostPollInterval,
                     weakSelf_.bind([wait = std::move(wait)](FrontmostAppWaiter& self) { self.pollUntil(wait); }));
    return;
  }
  log_.standard("target pid " + std::to_string(wait.pid) + " not frontmost in time, acting anyway");
  wait.then();
}

bool FrontmostAppWaiter::isFrontmost(std::int32_t pid) const {
  const auto frontmost = workspace_.frontmostApplication();
  return frontmost && frontmost->processIdentifier == pid;
}

}  // namespace rondora
