#include "platform/linux/x11/overlay/x11_input_grab.h"

#include <optional>
#include <utility>

#include "base/trace.h"

namespace rondora::x11 {
namespace {

constexpr int kAttempts = 20;
constexpr int kAttemptsWithPointer = 300;
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
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

X11InputGrab::~X11InputGrab() {
  if (sink_ != nullptr) ungrab();
  if (heldButtons_.any()) ungrabPointer();
}

void X11InputGrab::take(InputGrabSink& sink) {
  sink_ = &sink;
  hasKeyboard_ = hasPointer_ = false;
  heldButtons_.reset();
  attempts_ = 0;
  keys_.beginOverlay();
  attempt(connection_.lastEventTime());
}

// All requests go out, behind those already queued, before the first reply is awaited. The pointer is queried after its
// grab: motion before that went to another client. The time is too old when another client has grabbed since: the ring
// was requested over the bus, say, by the program whose hotkey was pressed.
void X11InputGrab::attempt(xcb_timestamp_t time) {
  ++attempts_;
  std::optional<xcb_grab_keyboard_cookie_t> keyboard;
  std::optional<xcb_grab_pointer_cookie_t> pointer;
  xcb_query_pointer_cookie_t place{};
  xcb_connection_t* connection = connection_.get();
  if (!hasKeyboard_) {
    keyboard = xcb_grab_keyboard(connection, 0, connection_.root(), time, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  }
  if (!hasPointer_) {
    pointer = xcb_grab_pointer(connection, 0, connection_.root(), kPointerEvents, XCB_GRAB_MODE_ASYNC,
                               XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, cursor_, time);
    place = xcb_query_pointer(connection, connection_.root());
  }
  connection_.flush();
  bool isTimeTooOld = false;
  const auto isGranted = [&isTimeTooOld](const auto& reply) {
    isTimeTooOld = isTimeTooOld || (reply && reply->status == XCB_GRAB_STATUS_INVALID_TIME);
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
  };
  using KeyboardReply = Reply<xcb_grab_keyboard_reply_t>;
  using PointerReply = Reply<xcb_grab_pointer_reply_t>;
  if (keyboard) hasKeyboard_ = isGranted(KeyboardReply(xcb_grab_keyboard_reply(connection, *keyboard, nullptr)));
  if (pointer) hasPointer_ = isGranted(PointerReply(xcb_grab_pointer_reply(connection, *pointer, nullptr)));
  const bool isPointerNew = pointer && hasPointer_;
  trace::line("grab: attempt ", attempts_, " keyboard ", hasKeyboard_, " pointer ", hasPointer_);
  if (isTimeTooOld && time != XCB_CURRENT_TIME) {
    attempt(XCB_CURRENT_TIME);
  } else if (!hasKeyboard_ || !hasPointer_) {
    retryLater();
  }
  if (!pointer) return;
  const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(connection, place, nullptr));
  if (reply && isPointerNew) sink_->grabbedPointerMoved(reply->root_x, reply->root_y);
}

void X11InputGrab::retryLater() {
  retry_ = mainQueue_.workItem(kRetrySeconds, [this] { retry(); });
}

// With the current time: the competing grab may be younger than the event behind ours.
void X11InputGrab::retry() {
  if (attempts_ < (hasPointer_ ? kAttemptsWithPointer : kAttempts)) return attempt(XCB_CURRENT_TIME);
  ungrab();
  std::exchange(sink_, nullptr)->grabFailed();
}

void X11InputGrab::release(const InputGrabSink& sink) {
  if (sink_ != &sink) return;
  ungrab();
  sink_ = nullptr;
}

void X11InputGrab::ungrab() {
  retry_.reset();
  keys_.endOverlay();
  if (std::exchange(hasKeyboard_, false)) xcb_ungrab_keyboard(connection_.get(), XCB_CURRENT_TIME);
  if (!std::exchange(hasPointer_, false)) return connection_.flush();
  const auto cookie = xcb_query_pointer(connection_.get(), connection_.root());
  const Reply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(connection_.get(), cookie, nullptr));
  for (std::size_t button = 1; pointer && button <= kButtonsInMask; ++button) {
    heldButtons_.set(button, (pointer->mask & (XCB_BUTTON_MASK_1 << (button - 1))) != 0);
  }
  if (heldButtons_.none()) ungrabPointer();
}

void X11InputGrab::ungrabPointer() {
  xcb_ungrab_pointer(connection_.get(), XCB_CURRENT_TIME);
  connection_.flush();
}

void X11InputGrab::setCursor(xcb_cursor_t cursor) {
  if (std::exchange(cursor_, cursor) == cursor || !hasPointer_) return;
  xcb_change_active_pointer_grab(connection_.get(), cursor, XCB_CURRENT_TIME, kPointerEvents);
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
  } else if (sink_ != nullptr && type == XCB_MOTION_NOTIFY) {
    sink_->grabbedPointerMoved(pointer.root_x, pointer.root_y);
  } else if (sink_ != nullptr) {
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
