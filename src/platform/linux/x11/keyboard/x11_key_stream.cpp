#include "platform/linux/x11/keyboard/x11_key_stream.h"

#include <chrono>
#include <utility>

#include "base/trace.h"

namespace rondora::x11 {
namespace {

constexpr double kSettleSeconds = 0.25;

double steadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void trace(const X11Key& key, std::optional<KeyConsumer> taker) {
  constexpr const char* kTargets[] = {"hotkey grab", "overlay", "own window"};
  constexpr const char* kConsumers[] = {"hotkeys", "monitors"};
  const char* what = key.direction == KeyDirection::up ? "up" : key.isRepeat ? "repeat" : "down";
  trace::line("key ", int{key.code}, " ", what, " state ", key.state, " time ", key.time, " by ",
              kTargets[static_cast<std::size_t>(key.target)], " taken by ",
              taker ? kConsumers[static_cast<std::size_t>(*taker)] : "none");
}

}  // namespace

X11KeyStream::X11KeyStream(X11Connection& connection, X11Keymap& keymap, RawKeyReleases& rawReleases,
                           MainQueue& mainQueue)
    : connection_(connection),
      keymap_(keymap),
      rawReleases_(rawReleases),
      mainQueue_(mainQueue),
      heldKeyGrabs_(connection, rawReleases.inputExtension()) {
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

Subscription X11KeyStream::consume(KeyConsumer consumer, Callback callback) {
  Callback& place = consumers_[static_cast<std::size_t>(consumer)];
  place = std::move(callback);
  return Subscription([&place] { place = nullptr; });
}

Subscription X11KeyStream::onPosition(std::function<void(PixelPosition)> observer) {
  positionObserver_ = std::move(observer);
  return Subscription([this] { positionObserver_ = nullptr; });
}

void X11KeyStream::beginOverlay() {
  trace::line("grab: the overlay takes keyboard and pointer");
  overlayHasKeyboard_ = true;
  settling_.reset();
  ungrabHeldKeys();
}

// Once the watch has begun, every release is reported: before the ungrab by the grab, after it by a raw event. The held
// keys are grabbed before the keyboard is ungrabbed, so that no repeat goes elsewhere.
void X11KeyStream::endOverlay() {
  trace::line("grab: the overlay ungrabs the keyboard");
  overlayHasKeyboard_ = false;
  pressedAt_ = 0;
  watchRawReleases();
  for (std::size_t key = 0; key < held_.size(); ++key) {
    if (!held_[key].isDown) continue;
    heldKeyGrabs_.grab(static_cast<xcb_keycode_t>(key));
    held_[key].isGrabbed = true;
    trace::line("grab: key ", key, " until its release");
  }
  settling_ = mainQueue_.workItem(kSettleSeconds, [this] { settled(); });
}

void X11KeyStream::settled() {
  settling_.reset();
  stopWatchingWhenNothingIsDown();
}

void X11KeyStream::ungrabHeldKeys() {
  bool any = false;
  for (std::size_t key = 0; key < held_.size(); ++key) {
    if (!std::exchange(held_[key].isGrabbed, false)) continue;
    heldKeyGrabs_.ungrab(static_cast<xcb_keycode_t>(key));
    any = true;
  }
  if (!any) return;
  trace::line("grab: held keys are ungrabbed");
  heldKeyGrabs_.ungrabKeyboard();
  connection_.flush();
}

bool X11KeyStream::handleEvent(const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7F;
  if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (key.event != connection_.root()) return handleOwnWindow(key);
    type == XCB_KEY_PRESS ? handlePress(key) : handleRelease(key);
    return true;
  }
  const auto key = heldKeyGrabs_.coreEvent(event);
  if (!key) return false;
  key->response_type == XCB_KEY_PRESS ? handleGrabbedPress(*key) : handleRelease(*key);
  return true;
}

// Such a key may be released in another window, so it is not recorded as held.
bool X11KeyStream::handleOwnWindow(const xcb_key_press_event_t& event) {
  X11Key key;
  key.code = event.detail;
  key.direction = (event.response_type & 0x7F) == XCB_KEY_PRESS ? KeyDirection::down : KeyDirection::up;
  key.target = KeyTarget::ownWindow;
  key.state = event.state;
  key.time = event.time;
  key.pointer = {event.root_x, event.root_y};
  return deliver(key).has_value();
}

void X11KeyStream::note(const xcb_key_press_event_t& event) {
  latest_.state = event.state;
  latest_.time = event.time;
  latest_.pointer = {event.root_x, event.root_y};
  if (overlayHasKeyboard_ && positionObserver_) positionObserver_(latest_.pointer);
}

X11Key X11KeyStream::latest(xcb_keycode_t code, KeyDirection direction) const {
  X11Key key = latest_;
  key.code = code;
  key.direction = direction;
  key.target = overlayHasKeyboard_ ? KeyTarget::overlay : KeyTarget::hotkey;
  key.taker = held_[code].taker;
  key.flagsAtPress = held_[code].flagsAtPress;
  return key;
}

void X11KeyStream::handlePress(const xcb_key_press_event_t& event) {
  note(event);
  pressedAt_ = steadySeconds();
  HeldKey& held = held_[event.detail];
  const bool isRepeat = std::exchange(held.isDown, true);
  if (!isRepeat) {
    ++downCount_;
    held.taker.reset();
    held.flagsAtPress = keymap_.eventFlags(event.state);
  }
  X11Key key = latest(event.detail, KeyDirection::down);
  key.isRepeat = isRepeat;
  const auto taker = deliver(key);
  if (!isRepeat) held.taker = taker;
}

// A key that was not held is new input: from the next key on other clients receive their keys again. This press itself
// is lost to them, because an asynchronous grab cannot replay it. The grab is active even where no held key is left:
// its key may have been pressed again before the ungrab reached the server.
void X11KeyStream::handleGrabbedPress(const xcb_key_press_event_t& event) {
  const bool isRepeat = held_[event.detail].isDown;
  if (!isRepeat) {
    ungrabHeldKeys();
    heldKeyGrabs_.ungrabKeyboard();
    connection_.flush();
  }
  handlePress(event);
  if (isRepeat) return;
  watchRawReleases();
  forgetKeysThatAreUp();
}

void X11KeyStream::handleRelease(const xcb_key_release_event_t& event) {
  note(event);
  noteUp(event.detail);
  // The passive grab ends here: other clients receive the releases of keys pressed during it.
  if (!overlayHasKeyboard_ && !watch_ && downCount_ > 0) {
    watchRawReleases();
    forgetKeysThatAreUp();
  }
}

void X11KeyStream::noteUp(xcb_keycode_t code) {
  HeldKey& held = held_[code];
  if (!std::exchange(held.isDown, false)) return;
  --downCount_;
  if (std::exchange(held.isGrabbed, false)) {
    heldKeyGrabs_.ungrab(code);
    connection_.flush();
  }
  deliver(latest(code, KeyDirection::up));
  stopWatchingWhenNothingIsDown();
}

std::optional<KeyConsumer> X11KeyStream::deliver(const X11Key& key) const {
  std::optional<KeyConsumer> taker;
  if (key.taker && offer(*key.taker, key)) taker = key.taker;
  for (std::size_t i = 0; i < kKeyConsumerCount && !taker; ++i) {
    const auto consumer = static_cast<KeyConsumer>(i);
    if (consumer != key.taker && offer(consumer, key)) taker = consumer;
  }
  if (trace::isOn) trace(key, taker);
  return taker;
}

bool X11KeyStream::offer(KeyConsumer consumer, const X11Key& key) const {
  const Callback& callback = consumers_[static_cast<std::size_t>(consumer)];
  return callback && callback(key);
}

void X11KeyStream::watchRawReleases() {
  if (watch_) return;
  if (!rawReleases_.available()) return forgetAll();
  watch_ = rawReleases_.watch([this](xcb_keycode_t key) {
    noteUp(key);
    return false;
  });
}

void X11KeyStream::stopWatchingWhenNothingIsDown() {
  if (!settling_ && downCount_ == 0) watch_.reset();
}

void X11KeyStream::forgetAll() {
  for (HeldKey& held : held_) held.isDown = false;
  downCount_ = 0;
}

void X11KeyStream::forgetKeysThatAreUp() {
  const auto cookie = xcb_query_keymap(connection_.get());
  const Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(connection_.get(), cookie, nullptr));
  if (!reply) return;
  for (std::size_t key = 0; key < held_.size(); ++key) {
    const bool isDown = (reply->keys[key / 8] >> (key % 8)) & 1;
    if (!isDown) noteUp(static_cast<xcb_keycode_t>(key));
  }
}

std::optional<PixelPosition> X11KeyStream::pointerAtPress(double maxAge) const {
  if (pressedAt_ == 0 || steadySeconds() - pressedAt_ > maxAge) return std::nullopt;
  return latest_.pointer;
}

}  // namespace rondora::x11
