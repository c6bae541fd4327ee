#include "windows/frontmost_app_waiter.h"

#include <string>
#include <utility>

namespace rondora {
namespace {

constexpr double kPollInterval = 0.02;  // seconds

}  // namespace

void FrontmostAppWaiter::poll(std::optional<std::int32_t> pid, WallTime deadline, std::function<void()> then) {
  if (!pid || isFrontmost(*pid)) return then();
  if (clock_.now() < deadline) {
    mainQueue_.after(kPollInterval, weak_.bind([pid, deadline, then = std::move(then)](FrontmostAppWaiter& self) {
      self.poll(pid, deadline, then);
    }));
    return;
  }
  log_.standard("target pid " + std::to_string(*pid) + " not frontmost in time, acting anyway");
  then();
}

bool FrontmostAppWaiter::isFrontmost(std::int32_t pid) const {
  const auto frontmost = workspace_.frontmostApplication();
  return frontmost && frontmost->processIdentifier == pid;
}

}  // namespace rondora
