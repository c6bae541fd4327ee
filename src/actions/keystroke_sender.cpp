#include "actions/keystroke_sender.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

namespace rondora {
namespace {

constexpr double kLongestWait = 0.5;  // seconds
constexpr double kKeyHold = 0.012;    // seconds
constexpr double kNextLook = 0.02;    // seconds

constexpr std::uint64_t kNumericPadFlag = 0x200000;
constexpr std::uint64_t kSecondaryFunctionFlag = 0x800000;

// Left, right, down, up.
constexpr std::array<std::int64_t, 4> kArrowKeyCodes = {123, 124, 125, 126};
// Home, Page Up, Forward Delete, End, Page Down.
constexpr std::array<std::int64_t, 5> kFunctionKeyCodes = {115, 116, 117, 119, 121};

template <std::size_t count>
bool contains(const std::array<std::int64_t, count>& codes, std::int64_t code) {
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

}  // namespace

std::uint64_t KeystrokeSender::eventFlags(std::int64_t keyCode, std::int64_t modifiers) {
  const auto stored = static_cast<std::uint64_t>(modifiers);
  if (contains(kArrowKeyCodes, keyCode)) return stored | kNumericPadFlag | kSecondaryFunctionFlag;
  if (contains(kFunctionKeyCodes, keyCode)) return stored | kSecondaryFunctionFlag;
  return stored;
}

void KeystrokeSender::perform(std::int64_t keyCode, std::int64_t modifiers, std::optional<std::int32_t> targetPID) {
  if (keyCode == 0 && modifiers == 0) return;
  if (!ports_.permissions.isProcessTrusted()) {
    ports_.log.error("keystroke skipped: Accessibility permission not granted");
    return;
  }
  const WallTime deadline = ports_.clock.now() + kLongestWait;
  ports_.whenFrontmost(targetPID, deadline, weak_.bind([keyCode, modifiers](KeystrokeSender& self) {
    self.postWhenApplicationsAreReached(keyCode, modifiers);
  }));
}

void KeystrokeSender::postWhenApplicationsAreReached(std::int64_t keyCode, std::int64_t modifiers) {
  if (ports_.keyEvents.reachesApplications()) return post(keyCode, modifiers);
  ports_.mainQueue.after(kNextLook, weak_.bind([keyCode, modifiers](KeystrokeSender& self) {
    self.postWhenApplicationsAreReached(keyCode, modifiers);
  }));
}

void KeystrokeSender::post(std::int64_t keyCode, std::int64_t modifiers) {
  const auto down = makeEvent(keyCode, modifiers, true);
  const auto up = down ? makeEvent(keyCode, modifiers, false) : std::nullopt;
  if (!up) {
    ports_.log.error("keystroke: failed to create CGEvent for key " + std::to_string(keyCode));
    return;
  }
  ports_.keyEvents.post(*down, KeyEventTap::session);
  ports_.clock.sleep(kKeyHold);
  ports_.keyEvents.post(*up, KeyEventTap::session);
  const auto frontmost = ports_.workspace.frontmostApplication();
  ports_.log.standard("keystroke sent: key=" + std::to_string(keyCode) + " flags=" + std::to_string(down->flags) +
                      " front=" + (frontmost ? frontmost->bundleIdentifier.value_or("?") : "?"));
}

std::optional<SyntheticKeyEvent> KeystrokeSender::makeEvent(std::int64_t keyCode, std::int64_t modifiers, bool isDown) {
  if (keyCode < 0 || keyCode > std::numeric_limits<std::uint16_t>::max() || modifiers < 0) return std::nullopt;
  return ports_.keyEvents.makeKeyEvent(KeyEventSourceState::privateState, static_cast<std::uint16_t>(keyCode), isDown,
                                       eventFlags(keyCode, modifiers));
}

}  // namespace rondora
