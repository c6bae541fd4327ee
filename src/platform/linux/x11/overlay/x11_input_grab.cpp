#include "platform/linux/x11/overlay/x11_input_grab.h"

#include <optional>
#include <utility>

#include "base/trace.h"

namespace rondora::x11 {
namespace {

constexpr int kMaxAttempts = 20;
constexpr int kMaxAttemptsWithPointer = 300;
constexpr double kRetrySeconds = 0.01;

constexpr std::uint16_t kPointerEvents =
    XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION;

constexpr int kButtonsInMask = 5;

bool isFocusOfGrab(const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7F;
  if (type != XCB_FOCUS_IN && type != XCB_FOCUS_OUT) return false;
  const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
  return focus.mode == XCB_NOTIFY_MODE_GRAB || focus.mode == XCB_NOTIFY_MODE_UNGRAB;
}

}  // namespace

X11InputGrab::X11InputGrab(X11Connection& connection, X11KeyStream& keys, MainQueue& mainQueue)
    : connection_(connection), keys_(keys), mainQueue_(mainQueue) {
  keyPositions_ = keys.onPosition([this](PixelPosition position) {
    if (isKeyboardReported_ && !hasPointer_) pointerAt(position);
  });
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

X11InputGrab::~X11InputGrab() {
  if (sink_ != nullptr) ungrab();
  if (heldButtons_.any()) ungrabPointer();
}

void X11InputGrab::request(InputGrabSink& sink) {
  receive();
  retry_.reset();
  sink_ = &sink;
  setHeld(true);
  hasKeyboard_ = hasPointer_ = isKeyboardReported_ = false;
  heldButtons_.reset();
  polled_.reset();
  attempts_ = 0;
  usesXi2_ = keys_.needsXi2Grab();
  followsRecording_ = followsRecording_ || keys_.isRecording();
  keys_.beginOverlay();
  send(connection_.lastEventTime());
}

void X11InputGrab::take(const InputGrabSink& sink) {
  if (sink_ != &sink) return;
  Outcome outcome = receive();
  if (outcome.isTimeTooOld) {
    send(XCB_CURRENT_TIME);
    outcome = receive();
  }
  follow(outcome);
}

// All requests go out, behind those already queued, before the first reply is awaited. The pointer is queried after its
// grab: motion before that went to another client.
void X11InputGrab::send(xcb_timestamp_t time) {
  xcb_connection_t* connection = connection_.get();
  ++attempts_;
  Attempt attempt;
  attempt.cursor = cursor_;
  if (!hasKeyboard_) requestKeyboard(attempt, time);
  if (!hasPointer_) {
    attempt.pointer = xcb_grab_pointer(connection, 0, connection_.root(), kPointerEvents, XCB_GRAB_MODE_ASYNC,
                                       XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, cursor_, time);
  }
  attempt.place = xcb_query_pointer(connection, connection_.root());
  attempt_ = attempt;
  connection_.flush();
}

void X11InputGrab::requestKeyboard(Attempt& attempt, xcb_timestamp_t time) const {
  if (usesXi2_) {
    attempt.xi2Keyboard = keys_.xi2().grabKeyboard(time);
  } else {
    attempt.keyboard =
        xcb_grab_keyboard(connection_.get(), 0, connection_.root(), time, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  }
}

// The time is too old when another client has grabbed since: the ring was requested over the bus, say, by the program
// whose hotkey was pressed.
X11InputGrab::Outcome X11InputGrab::receive() {
  if (!attempt_) return {};
  const Attempt attempt = *std::exchange(attempt_, std::nullopt);
  xcb_connection_t* connection = connection_.get();
  Outcome outcome;
  const auto isGranted = [&outcome](const auto& reply) {
    outcome.isTimeTooOld = outcome.isTimeTooOld || (reply && reply->status == XCB_GRAB_STATUS_INVALID_TIME);
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
  };
  using KeyboardReply = Reply<xcb_grab_keyboard_reply_t>;
  using PointerReply = Reply<xcb_grab_pointer_reply_t>;
  if (attempt.keyboard) {
    hasKeyboard_ = isGranted(KeyboardReply(xcb_grab_keyboard_reply(connection, *attempt.keyboard, nullptr)));
  }
  if (attempt.xi2Keyboard) hasKeyboard_ = isGranted(keys_.xi2().reply(*attempt.xi2Keyboard));
  if (attempt.pointer) {
    hasPointer_ = isGranted(PointerReply(xcb_grab_pointer_reply(connection, *attempt.pointer, nullptr)));
    if (hasPointer_ && attempt.cursor != cursor_) changeCursor();
  }
  const Reply<xcb_query_pointer_reply_t> place(xcb_query_pointer_reply(connection, attempt.place, nullptr));
  if (place) outcome.pointer = {place->root_x, place->root_y};
  trace::line("grab: attempt ", attempts_, usesXi2_ ? " XI2" : " core", " keyboard ", hasKeyboard_, " pointer ",
              hasPointer_);
  return outcome;
}

void X11InputGrab::follow(const Outcome& outcome) {
  if (hasKeyboard_ && hasPointer_) {
    retry_.reset();
  } else if (!retry_) {
    retry_ = mainQueue_.timer(kRetrySeconds, 0, [this] { retry(); });
  }
  if (!hasKeyboard_) return;
  if (!std::exchange(isKeyboardReported_, true)) sink_->keyboardGrabbed();
  if (outcome.pointer) pointerAt(*outcome.pointer);
}

// With the current time: the competing grab may be younger than the event behind ours. The other protocol: the grab
// that refuses this one may be an own passive one.
void X11InputGrab::retry() {
  if (!hasKeyboard_) usesXi2_ = !usesXi2_ && keys_.xi2().available();
  if (hasKeyboard_ || attempts_ < (hasPointer_ ? kMaxAttemptsWithPointer : kMaxAttempts)) {
    send(XCB_CURRENT_TIME);
    return follow(receive());
  }
  ungrab();
  std::exchange(sink_, nullptr)->grabFailed();
}

void X11InputGrab::pointerAt(PixelPosition position) {
  if (sink_ == nullptr || polled_ == position) return;
  polled_ = position;
  sink_->grabbedPointerMoved(position.x, position.y);
}

void X11InputGrab::release(const InputGrabSink& sink) {
  if (sink_ != &sink) return;
  ungrab();
  sink_ = nullptr;
}

void X11InputGrab::ungrab() {
  receive();
  retry_.reset();
  keys_.endOverlay();
  ungrabKeyboard();
  if (!std::exchange(hasPointer_, false)) {
    connection_.flush();
    return setHeld(false);
  }
  const auto cookie = xcb_query_pointer(connection_.get(), connection_.root());
  const Reply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(connection_.get(), cookie, nullptr));
  for (std::size_t button = 1; pointer && button <= kButtonsInMask; ++button) {
    heldButtons_.set(button, (pointer->mask & (XCB_BUTTON_MASK_1 << (button - 1))) != 0);
  }
  if (heldButtons_.none()) ungrabPointer();
}

void X11InputGrab::ungrabKeyboard() {
  const bool isHeld = std::exchange(hasKeyboard_, false);
  const bool mayBeOfEither = std::exchange(followsRecording_, false);
  if (mayBeOfEither || (isHeld && usesXi2_)) keys_.xi2().ungrabKeyboard();
  if (mayBeOfEither || (isHeld && !usesXi2_)) xcb_ungrab_keyboard(connection_.get(), XCB_CURRENT_TIME);
}

void X11InputGrab::ungrabPointer() {
  xcb_ungrab_pointer(connection_.get(), XCB_CURRENT_TIME);
  connection_.flush();
  setHeld(false);
}

Subscription X11InputGrab::onHeldChanged(std::function<void(bool)> observer) {
  heldObserver_ = std::move(observer);
  return Subscription([this] { heldObserver_ = nullptr; });
}

void X11InputGrab::setHeld(bool isHeld) {
  if (std::exchange(isHeld_, isHeld) != isHeld && heldObserver_) heldObserver_(isHeld);
}

void X11InputGrab::setCursor(xcb_cursor_t cursor) {
  if (std::exchange(cursor_, cursor) != cursor && hasPointer_) changeCursor();
}

void X11InputGrab::changeCursor() const {
  xcb_change_active_pointer_grab(connection_.get(), cursor_, XCB_CURRENT_TIME, kPointerEvents);
  connection_.flush();
}

// A grab does not move the focus, but the toolkit would take its windows for inactive and, at the end of the grab, for
// activated again.
bool X11InputGrab::handleEvent(const xcb_generic_event_t& event) {
  if (isFocusOfGrab(event)) return true;
  const int type = event.response_type & 0x7F;
  if (type != XCB_MOTION_NOTIFY && type != XCB_BUTTON_PRESS && type != XCB_BUTTON_RELEASE) return false;
  const auto& pointer = reinterpret_cast<const xcb_button_press_event_t&>(event);
  if (pointer.event != connection_.root()) return false;
  if (type == XCB_BUTTON_RELEASE) {
    handleRelease(pointer.detail);
  } else if (sink_ == nullptr || !isKeyboardReported_) {
    return true;
  } else if (type == XCB_MOTION_NOTIFY) {
    sink_->grabbedPointerMoved(pointer.root_x, pointer.root_y);
  } else {
    sink_->grabbedButtonPressed(pointer.root_x, pointer.root_y, pointer.detail);
  }
  return true;
}

void X11InputGrab::handleRelease(xcb_button_t button) {
  if (!heldButtons_[button]) return;
  heldButtons_.reset(button);
  if (heldButtons_.none()) ungrabPointer();
}

}  // namespace rondora::x11
