#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "base/weak_self.h"
#include "platform/clock.h"
#include "platform/log.h"
#include "platform/main_queue.h"
#include "platform/workspace.h"

namespace rondora {

/// Waits, without blocking, until a process is frontmost. Main thread.
class FrontmostAppWaiter {
 public:
  FrontmostAppWaiter(Workspace& workspace, MainQueue& mainQueue, const Clock& clock, Log& log)
      : workspace_(workspace), mainQueue_(mainQueue), clock_(clock), log_(log) {}

  /// Runs `then` once: immediately when `pid` is absent or already frontmost, otherwise when a later poll finds it
  /// frontmost or `deadline` has passed. A wall clock that is set back does not prolong the wait. Waits are independent
  /// of each other; only destroying the waiter cancels them.
  void poll(std::optional<std::int32_t> pid, WallTime deadline, std::function<void()> then);

 private:
  struct Wait {
    std::int32_t pid = 0;
    WallTime deadline = 0;
    double latestUptime = 0;
    std::function<void()> then;
  };

  void pollUntil(Wait wait);
  bool isFrontmost(std::int32_t pid) const;

  Workspace& workspace_;
  MainQueue& mainQueue_;
  const Clock& clock_;
  Log& log_;
  WeakSelf<FrontmostAppWaiter> weakSelf_{this};
};

}  // namespace rondora
