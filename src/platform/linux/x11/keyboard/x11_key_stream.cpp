#include "platform/linux/x11/keyboard/x11_key_stream.h"

#include <utility>

namespace rondora::x11 {
namespace {

constexpr double kSettleSeconds = 0.25;

}  // namespace

X11KeyStream::X11KeyStream(X11Connection& connection, RawKeyReleases& rawReleases, MainQueue& mainQueue)
    : connection_(connection),
      rawReleases_(rawReleases),
      mainQueue_(mainQueue),
      heldKeys_(connection, rawReleases.inputExtension()) {
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

void X11KeyStream::beginOverlay() {
  overlayHasKeyboard_ = true;
  settling_.reset();
  heldKeys_.releaseAll();
}

// From the watch on, each release reaches us: before the ungrab by the grab, after it as a raw event. The held keys are
// taken before the keyboard is given back, so that no repeat slips through.
void X11KeyStream::endOverlay() {
  overlayHasKeyboard_ = false;
  watchRawReleases();
  for (std::size_t key = 0; key < down_.size(); ++key) {
    if (down_[key]) heldKeys_.hold(static_cast<xcb_keycode_t>(key));
  }
  settling_ = mainQueue_.workItem(kSettleSeconds, [this] { settled(); });
}

void X11KeyStream::settled() {
  settling_.reset();
  stopWatchingWhenNothingIsDown();
}

bool X11KeyStream::handleEvent(const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7F;
  if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (key.event != connection_.root()) return false;  // a window of the toolkit's
    type == XCB_KEY_PRESS ? handlePress(key) : handleRelease(key);
    return true;
  }
  const auto key = heldKeys_.coreEvent(event);
  if (!key) return false;
  key->response_type == XCB_KEY_PRESS ? handleHeldPress(*key) : handleRelease(*key);
  return true;
}

void X11KeyStream::handlePress(const xcb_key_press_event_t& event) {
  const bool isRepeat = down_[event.detail];
  down_.set(event.detail);
  lastState_ = event.state;
  keys_.offer({event.detail, event.state, KeyDirection::down, isRepeat, overlayHasKeyboard_});
}

// A key that was not held goes on to other things: the keyboard is free for them again from here on.
void X11KeyStream::handleHeldPress(const xcb_key_press_event_t& event) {
  const bool isRepeat = down_[event.detail];
  if (!isRepeat) heldKeys_.releaseAll();
  handlePress(event);
  if (isRepeat) return;
  watchRawReleases();
  forgetKeysThatAreUp();
}

void X11KeyStream::handleRelease(const xcb_key_release_event_t& event) {
  lastState_ = event.state;
  noteUp(event.detail);
  // The passive grab ends here; keys pressed meanwhile are released to somebody else.
  if (!overlayHasKeyboard_ && !watch_ && down_.any()) {
    watchRawReleases();
    forgetKeysThatAreUp();
  }
}

void X11KeyStream::noteUp(xcb_keycode_t key) {
  if (!down_[key]) return;
  down_.reset(key);
  heldKeys_.release(key);
  keys_.offer({key, lastState_, KeyDirection::up, false, overlayHasKeyboard_});
  stopWatchingWhenNothingIsDown();
}

void X11KeyStream::watchRawReleases() {
  if (watch_) return;
  if (!rawReleases_.available()) {
    down_.reset();
    return;
  }
  watch_ = rawReleases_.watch([this](xcb_keycode_t key) {
    noteUp(key);
    return false;
  });
}

void X11KeyStream::stopWatchingWhenNothingIsDown() {
  if (!settling_ && down_.none()) watch_.reset();
}

void X11KeyStream::forgetKeysThatAreUp() {
  const auto cookie = xcb_query_keymap(connection_.get());
  const Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(connection_.get(), cookie, nullptr));
  if (!reply) return;
  for (std::size_t key = 0; key < down_.size(); ++key) {
    const bool isDown = (reply->keys[key / 8] >> (key % 8)) & 1;
    if (!isDown) noteUp(static_cast<xcb_keycode_t>(key));
  }
}

}  // namespace rondora::x11
