#pragma once

#include "platform/session_events.h"

namespace rondora::macos {

/// Sleep, the screen's and the machine's, and the user's session left or locked. The lock is announced under a name
/// that no documentation promises; without it the screen's sleep still is.
class WorkspaceSessionEvents final : public SessionEvents {
 public:
  [[nodiscard]] Subscription onLockOrSleep(std::function<void()> observer) override;
  [[nodiscard]] Subscription onDidWake(std::function<void()> observer) override;
};

}  // namespace rondora::macos
