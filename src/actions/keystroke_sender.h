#pragma once

#include <cstdint>
#include <optional>

#include "actions/frontmost_app_waiter.h"
#include "base/weak_self.h"
#include "platform/clock.h"
#include "platform/key_event_poster.h"
#include "platform/log.h"
#include "platform/main_queue.h"
#include "platform/permission_service.h"
#include "platform/workspace.h"

namespace rondora {

/// Types one key combination into the application that the user works in. Main thread.
class KeystrokeSender {
 public:
  /// All outlive this.
  struct Ports {
    PermissionService& permissions;
    FrontmostAppWaiter& frontmostAppWaiter;
    KeyEventPoster& keyEvents;
    Workspace& workspace;
    MainQueue& mainQueue;
    Clock& clock;
    Log& log;
  };

  explicit KeystrokeSender(const Ports& ports) : ports_(ports) {}

  /// Waits up to half a second, without blocking, for the target to be frontmost, then types the key either way.
  /// Without a target it types at once. A key code and a mask of 0 stand for an empty recording: nothing is typed.
  /// Where a menu that was opened meanwhile would take the key, it goes out when that is closed.
  void perform(std::int64_t keyCode, std::int64_t modifiers, std::optional<std::int32_t> targetPID);
  /// Types the key at once: down, 12 ms, up. A key code that no key has, or a negative mask, types nothing.
  void post(std::int64_t keyCode, std::int64_t modifiers);

  /// The stored mask (event flags) with the bits that keyboards set by themselves for arrows and navigation keys.
  static std::uint64_t eventFlags(std::int64_t keyCode, std::int64_t modifiers);

 private:
  void postWhenApplicationsAreReached(std::int64_t keyCode, std::int64_t modifiers);
  std::optional<SyntheticKeyEvent> makeEvent(std::int64_t keyCode, std::int64_t modifiers, bool isDown);

  Ports ports_;
  WeakSelf<KeystrokeSender> weak_{this};
};

}  // namespace rondora
