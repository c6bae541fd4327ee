#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

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
  /// Runs `then` once the process is frontmost, at the deadline at the latest, at once without a process.
  using WhenFrontmost =
      std::function<void(std::optional<std::int32_t> pid, WallTime deadline, std::function<void()> then)>;

  /// The references outlive this.
  struct Ports {
    PermissionService& permissions;
    WhenFrontmost whenFrontmost;
    KeyEventPoster& keyEvents;
    Workspace& workspace;
    MainQueue& mainQueue;
    Clock& clock;
    Log& log;
  };

  explicit KeystrokeSender(Ports ports) : ports_(std::move(ports)) {}

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
