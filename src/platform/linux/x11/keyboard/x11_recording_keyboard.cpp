#include "platform/linux/x11/keyboard/x11_recording_keyboard.h"

#include <cstdint>
#include <utility>

#include "base/trace.h"

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kFirstWheelButton = 4;
constexpr std::uint32_t kLastWheelButton = 7;

}  // namespace

std::optional<Subscription> X11RecordingKeyboard::take(Observer observer) {
  release();
  if (keys_.overlayHasKeyboard()) return std::nullopt;
  setHeld(true);
  keys_.beginRecording([this] { lose(); });
  if (!grab()) {
    release();
    return std::nullopt;
  }
  observer_ = std::move(observer);
  buttons_ = rawEvents_.watchButtons([this](std::uint32_t button) { pressed(button); });
  return Subscription([this] { release(); });
}

bool X11RecordingKeyboard::grab() {
  usesXi2_ = false;
  if (!keys_.needsXi2Grab() && grabInCore()) return true;
  if (!keys_.xi2().available()) return false;
  const auto reply = keys_.xi2().reply(keys_.xi2().grabKeyboard(XCB_CURRENT_TIME));
  usesXi2_ = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
  return usesXi2_;
}

bool X11RecordingKeyboard::grabInCore() const {
  const auto cookie = xcb_grab_keyboard(connection_.get(), 0, connection_.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                        XCB_GRAB_MODE_ASYNC);
  const Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(connection_.get(), cookie, nullptr));
  const bool isGranted = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
  trace::line("grab: the recording ", isGranted ? "has" : "is refused", " the keyboard");
  return isGranted;
}

// Ungrabbing a keyboard that is not held has no effect.
void X11RecordingKeyboard::release() {
  if (!isHeld_) return;
  buttons_.reset();
  keys_.endRecording();
  if (usesXi2_) {
    keys_.xi2().ungrabKeyboard();
  } else {
    xcb_ungrab_keyboard(connection_.get(), XCB_CURRENT_TIME);
  }
  connection_.flush();
  setHeld(false);
}

// The overlay's grab replaces the recording's.
void X11RecordingKeyboard::lose() {
  buttons_.reset();
  setHeld(false);
  if (const auto lost = observer_.onLost) lost();
}

void X11RecordingKeyboard::setHeld(bool isHeld) {
  if (std::exchange(isHeld_, isHeld) != isHeld && heldObserver_) heldObserver_(isHeld);
}

Subscription X11RecordingKeyboard::onHeldChanged(std::function<void(bool)> observer) {
  heldObserver_ = std::move(observer);
  return Subscription([this] { heldObserver_ = nullptr; });
}

void X11RecordingKeyboard::pressed(std::uint32_t button) const {
  const bool isWheel = button >= kFirstWheelButton && button <= kLastWheelButton;
  if (const auto click = observer_.onClick; click && !isWheel) click();
}

}  // namespace rondora::x11
