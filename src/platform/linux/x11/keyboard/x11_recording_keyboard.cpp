#include "platform/linux/x11/keyboard/x11_recording_keyboard.h"

#include <xcb/xinput.h>

#include <utility>

#include "base/trace.h"

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kFirstWheelButton = 4;
constexpr std::uint32_t kLastWheelButton = 7;

}  // namespace

X11RecordingKeyboard::X11RecordingKeyboard(X11Connection& connection, X11KeyStream& keys, std::uint8_t inputExtension)
    : connection_(connection), keys_(keys), inputExtension_(inputExtension) {
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

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
  selectClicks(true);
  return Subscription([this] { release(); });
}

bool X11RecordingKeyboard::grab() {
  usesXi2_ = false;
  if (grabInCore()) return true;
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
  selectClicks(false);
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
  selectClicks(false);
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

// No other code selects events of all devices, so the mask can be replaced.
void X11RecordingKeyboard::selectClicks(bool isWanted) const {
  if (inputExtension_ == 0) return;
  struct {
    xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL, 1};
    std::uint32_t mask;
  } selection{.mask = isWanted ? std::uint32_t{XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS} : 0U};
  xcb_input_xi_select_events(connection_.get(), connection_.root(), 1, &selection.head);
  connection_.flush();
}

bool X11RecordingKeyboard::handleEvent(const xcb_generic_event_t& event) const {
  if (!isHeld_ || (event.response_type & 0x7F) != XCB_GE_GENERIC) return false;
  const auto& raw = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
  if (raw.extension != inputExtension_ || raw.event_type != XCB_INPUT_RAW_BUTTON_PRESS) return false;
  const bool isWheel = raw.detail >= kFirstWheelButton && raw.detail <= kLastWheelButton;
  if (const auto click = observer_.onClick; click && !isWheel) click();
  return false;
}

}  // namespace rondora::x11
