#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "actions/action_failure.h"
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
  /// Runs `then` once the process is frontmost, at the latest at the deadline; immediately without a process.
  using WhenFrontmost =
      std::function<void(std::optional<std::int32_t> pid, WallTime deadline, std::function<void()> then)>;

  /// The references must outlive the object.
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
  /// Without a target it types at once. A key code and a mask of 0 are an empty recording: nothing is typed. While a
  /// ring is open the key would go to the ring, so it waits up to three seconds for the ring to close, and then up to
  /// half a second for the target; a key that cannot reach its target by then is dropped and logged. Calls `ended` once
  /// the key is typed or dropped; never for an empty recording.
  void perform(std::int64_t keyCode, std::int64_t modifiers, std::optional<std::int32_t> targetPID,
               const ActionEnded& ended = {});
  /// Types the key at once: down, 12 ms, up. Types nothing when the keyboard lacks the key or one of the modifiers, or
  /// when the mask is negative.
  std::optional<ActionFailure> post(std::int64_t keyCode, std::int64_t modifiers);

  /// The bits that keyboards set in the events of arrows and navigation keys without any modifier.
  static std::uint64_t ownFlags(std::int64_t keyCode);
  /// The stored mask (event flags) with the key's own bits.
  static std::uint64_t eventFlags(std::int64_t keyCode, std::int64_t modifiers) {
    return static_cast<std::uint64_t>(modifiers) | ownFlags(keyCode);
  }

 private:
  struct Request {
    std::int64_t keyCode = 0;
    std::int64_t modifiers = 0;
    std::optional<std::int32_t> targetPID;
    ActionEnded ended;

    void end(const std::optional<ActionFailure>& failure) const {
      if (ended) ended(failure);
    }
  };

  struct RingWait {
    double latestUptime = 0;
    bool ringWasClosed = false;
  };

  void type(const Request& request);
  void waitForRing(const Request& request, RingWait wait);
  bool isFrontmost(std::optional<std::int32_t> pid) const;
  std::optional<SyntheticKeyEvent> makeEvent(std::int64_t keyCode, std::int64_t modifiers, bool isDown);

  Ports ports_;
  WeakSelf<KeystrokeSender> weakSelf_{this};
};

}  // namespace rondora
