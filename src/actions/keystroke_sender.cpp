#include "actions/keystroke_sender.h"

#include <algorithm>
#include <limits>
#include <string>

#include "base/trace.h"
#include "platform/key_codes.h"
#include "platform/key_event.h"

namespace rondora {
namespace {

constexpr double kMaxRingWait = 3;  // seconds, for a ring to close
constexpr double kKeyHold = 0.012;  // seconds

}  // namespace

std::uint64_t KeystrokeSender::ownFlags(std::int64_t keyCode) {
  if (key_codes::isAmong(key_codes::kArrows, keyCode)) return event_flags::kNumericPad | event_flags::kFunction;
  return key_codes::isAmong(key_codes::kNavigation, keyCode) ? event_flags::kFunction : 0;
}

void KeystrokeSender::perform(std::int64_t keyCode, std::int64_t modifiers, std::optional<std::int32_t> targetPID,
                              const ActionEnded& ended) {
  if (keyCode == 0 && modifiers == 0) return;
  const Request request{keyCode, modifiers, targetPID, ended};
  if (!ports_.permissions.isProcessTrusted()) {
    ports_.log.error("keystroke skipped: Accessibility permission not granted");
    return request.end(ActionFailure{ActionProblem::keysRefused});
  }
  const WallTime deadline = ports_.clock.now() + kMaxFrontmostWait;
  ports_.whenFrontmost(targetPID, deadline, weakSelf_.bind([request](KeystrokeSender& self) {
    if (self.ports_.keyEvents.reachesApplications()) return self.type(request);
    trace::line("keystroke: key ", request.keyCode, " waits for the open ring");
    self.waitForRing(request, {self.ports_.clock.uptime() + kMaxRingWait});
  }));
}

void KeystrokeSender::type(const Request& request) { request.end(post(request.keyCode, request.modifiers)); }

// The ring may have brought another application to the front: only the target gets the key.
void KeystrokeSender::waitForRing(const Request& request, RingWait wait) {
  const bool isClosed = ports_.keyEvents.reachesApplications();
  if (isClosed && isFrontmost(request.targetPID)) return type(request);
  const double uptime = ports_.clock.uptime();
  if (isClosed && !wait.ringWasClosed) wait = {std::min(wait.latestUptime, uptime + kMaxFrontmostWait), true};
  if (uptime >= wait.latestUptime) {
    ports_.log.error(isClosed ? "keystroke skipped: the target was not frontmost after the ring closed"
                              : "keystroke skipped: the ring stayed open");
    return request.end(ActionFailure{ActionProblem::targetNotInFront});
  }
  ports_.mainQueue.after(kFrontmostPollInterval,
                         weakSelf_.bind([request, wait](KeystrokeSender& self) { self.waitForRing(request, wait); }));
}

bool KeystrokeSender::isFrontmost(std::optional<std::int32_t> pid) const {
  if (!pid) return true;
  const auto frontmost = ports_.workspace.frontmostApplication();
  return frontmost && frontmost->processIdentifier == *pid;
}

std::optional<ActionFailure> KeystrokeSender::post(std::int64_t keyCode, std::int64_t modifiers) {
  const auto down = makeEvent(keyCode, modifiers, true);
  const auto up = down ? makeEvent(keyCode, modifiers, false) : std::nullopt;
  if (!up) {
    ports_.log.error("keystroke: failed to create CGEvent for key " + std::to_string(keyCode));
    return ActionFailure{ActionProblem::noSuchKey};
  }
  const bool isPressed = ports_.keyEvents.post(*down, KeyEventTap::session);
  ports_.clock.sleep(kKeyHold);
  if (!ports_.keyEvents.post(*up, KeyEventTap::session) || !isPressed) {
    ports_.log.error("keystroke: the system did not take key " + std::to_string(keyCode));
    return ActionFailure{ActionProblem::keysRefused};
  }
  const auto frontmost = ports_.workspace.frontmostApplication();
  ports_.log.standard("keystroke sent: key=" + std::to_string(keyCode) + " flags=" + std::to_string(down->flags) +
                      " front=" + (frontmost ? frontmost->bundleIdentifier.value_or("?") : "?"));
  return std::nullopt;
}

std::optional<SyntheticKeyEvent> KeystrokeSender::makeEvent(std::int64_t keyCode, std::int64_t modifiers, bool isDown) {
  if (keyCode < 0 || keyCode > std::numeric_limits<std::uint16_t>::max() || modifiers < 0) return std::nullopt;
  return ports_.keyEvents.makeKeyEvent(KeyEventSourceState::privateState, static_cast<std::uint16_t>(keyCode), isDown,
                                       {static_cast<std::uint64_t>(modifiers), ownFlags(keyCode)});
}

}  // namespace rondora
