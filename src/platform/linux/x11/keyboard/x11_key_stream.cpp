#include "platform/linux/x11/keyboard/x11_key_stream.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "base/trace.h"

namespace rondora::x11 {
namespace {

constexpr double kSettleSeconds = 0.25;
/// Within this time an overlay takes the keyboard, if the key opens one.
constexpr double kHandoverSeconds = 0.05;

double steadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void trace(const X11Key& key, std::optional<KeyConsumer> taker) {
  constexpr const char* kTargets[] = {"hotkey grab", "overlay", "own window", "recorder"};
  constexpr const char* kConsumers[] = {"tap", "hotkeys", "monitors"};
  const char* what = key.direction == KeyDirection::up ? "up" : key.isRepeat ? "repeat" : "down";
  trace::line("key ", int{key.code}, " ", what, " state ", key.state, " time ", key.time, " by ",
              kTargets[static_cast<std::size_t>(key.target)], " taken by ",
              taker ? kConsumers[static_cast<std::size_t>(*taker)] : "none");
}

/// The key was pressed during the recording that still holds the keyboard.
bool isRecorded(const X11Key& key) {
  return key.target == KeyTarget::recorder && key.taker.value_or(KeyConsumer::monitors) == KeyConsumer::monitors;
}

}  // namespace

X11KeyStream::X11KeyStream(X11Connection& connection, X11Keymap& keymap, RawKeyReleases& rawReleases,
                           MainQueue& mainQueue)
    : connection_(connection),
      keymap_(keymap),
      rawReleases_(rawReleases),
      mainQueue_(mainQueue),
      xi2_(connection, rawReleases.inputExtension()),
      handover_(connection, xi2_, rawReleases) {
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

Subscription X11KeyStream::consume(KeyConsumer consumer, Callback callback) {
  Callback& place = consumers_[static_cast<std::size_t>(consumer)];
  place = std::move(callback);
  return Subscription([&place] { place = nullptr; });
}

Subscription X11KeyStream::useTapGrabs(TapGrabs grabs) {
  tapGrabs_ = std::move(grabs);
  return Subscription([this] { tapGrabs_ = {}; });
}

Subscription X11KeyStream::onPosition(std::function<void(PixelPosition)> observer) {
  positionObserver_ = std::move(observer);
  return Subscription([this] { positionObserver_ = nullptr; });
}

void X11KeyStream::beginRecording(std::function<void()> lost) {
  beginOverlay();
  recordingLost_ = std::move(lost);
}

void X11KeyStream::endRecording() {
  recordingLost_ = nullptr;
  endOverlay();
}

void X11KeyStream::beginOverlay() {
  if (const auto lost = std::exchange(recordingLost_, nullptr)) lost();
  trace::line("grab: the overlay takes keyboard and pointer");
  overlayHasKeyboard_ = true;
  settling_.reset();
  handoverItem_.reset();
  handover_.clear();
  ungrabHeldKeys();
}

// Once the watch has begun, every release is reported: before the ungrab by the grab, after it by a raw event. The held
// keys are grabbed before the keyboard is ungrabbed, so that no repeat goes elsewhere.
void X11KeyStream::endOverlay() {
  trace::line("grab: the overlay ungrabs the keyboard");
  overlayHasKeyboard_ = false;
  pressedAt_ = 0;
  tapKey_.reset();
  watchRawReleases();
  KeySet silenced;
  for (std::size_t key = 0; key < held_.size(); ++key) {
    if (held_[key].isDown && !held_[key].isSilenced) silenced[key] = !grabHeldKey(static_cast<xcb_keycode_t>(key));
  }
  handover_.silence(silenced);
  settling_ = mainQueue_.workItem(kSettleSeconds, [this] { settled(); });
}

// False for a key that is held like a modifier: it is silenced instead, so that other keys work beside it.
bool X11KeyStream::grabHeldKey(xcb_keycode_t key) {
  HeldKey& held = held_[key];
  held.isSilenced = held.taker == KeyConsumer::tap && tapGrabs_.handOver && tapGrabs_.handOver(key);
  if (held.isSilenced) return false;
  held.isGrabbed = true;
  reportGrabbedKeys();
  xi2_.grabHeld(key);
  trace::line("grab: key ", int{key}, " until its release");
  return true;
}

void X11KeyStream::settled() {
  settling_.reset();
  stopWatchingWhenNothingIsDown();
}

void X11KeyStream::ungrabHeldKeys() {
  bool any = false;
  for (std::size_t key = 0; key < held_.size(); ++key) {
    if (!std::exchange(held_[key].isGrabbed, false)) continue;
    ungrabHeldKey(static_cast<xcb_keycode_t>(key));
    any = true;
  }
  if (!any) return;
  trace::line("grab: held keys are ungrabbed");
  xi2_.ungrabKeyboard();
  connection_.flush();
  reportGrabbedKeys();
}

void X11KeyStream::ungrabHeldKey(xcb_keycode_t key) {
  xi2_.ungrabHeld(key);
  if (tapGrabs_.renew) tapGrabs_.renew(key);
}

bool X11KeyStream::handleEvent(const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7F;
  if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (key.event != connection_.root()) return !rawReleases_.isDisowned(event) && handleOwnWindow(key);
    if (rawReleases_.isDisowned(event)) return true;
    type == XCB_KEY_PRESS ? handlePress(key) : handleRelease(key);
    return true;
  }
  const auto key = xi2_.coreEvent(event);
  if (!key) return false;
  connection_.noteEventTime(key->time);
  if (rawReleases_.isDisowned(event)) return true;
  key->response_type == XCB_KEY_PRESS ? handleXi2Press(*key, Xi2Keyboard::isRepeat(event)) : handleRelease(*key);
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
  key.target = !overlayHasKeyboard_ ? KeyTarget::hotkey : recordingLost_ ? KeyTarget::recorder : KeyTarget::overlay;
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

// A press that is no repeat ends one whose release was missed.
void X11KeyStream::handleXi2Press(const xcb_key_press_event_t& event, bool isRepeat) {
  if (!isRepeat) noteUp(event.detail);
  if (overlayHasKeyboard_) return handlePress(event);
  if (tapKey_ || isTapPress(event)) return handleTapPress(event);
  handleHeldPress(event);
}

bool X11KeyStream::hasGrabbedHeldKey() const {
  return std::any_of(held_.begin(), held_.end(), [](const HeldKey& key) { return key.isGrabbed; });
}

bool X11KeyStream::needsXi2Grab() const {
  return isXi2GrabActive() || std::ranges::any_of(held_, [](const HeldKey& key) { return key.isSilenced; });
}

void X11KeyStream::reportGrabbedKeys() {
  const bool hasAny = hasGrabbedHeldKey();
  if (std::exchange(hasGrabbedKey_, hasAny) != hasAny && heldObserver_) heldObserver_(hasAny);
}

Subscription X11KeyStream::onHeldChanged(std::function<void(bool)> observer) {
  heldObserver_ = std::move(observer);
  return Subscription([this] { heldObserver_ = nullptr; });
}

bool X11KeyStream::isTapPress(const xcb_key_press_event_t& event) const {
  return !hasGrabbedHeldKey() && tapGrabs_.contain && tapGrabs_.contain(event.detail, event.state);
}

void X11KeyStream::handleTapPress(const xcb_key_press_event_t& event) {
  const bool isFirst = !tapKey_;
  if (isFirst) tapKey_ = event.detail;
  const bool isRepeat = held_[event.detail].isDown;
  handlePress(event);
  if (isRepeat) return;
  const bool isForClient = !held_[event.detail].taker;
  if (isForClient) handover_.add(event.detail, true);
  if (isForClient && isFirst) return handOver();
  if (isForClient || (tapGrabs_.handOver && tapGrabs_.handOver(event.detail))) handOverSoon();
}

void X11KeyStream::handOverSoon() {
  if (!handoverItem_) handoverItem_ = mainQueue_.workItem(kHandoverSeconds, [this] { handOver(); });
}

// The watch begins first: the user's releases of silenced keys are reported by raw events only.
void X11KeyStream::handOver() {
  handoverItem_.reset();
  if (overlayHasKeyboard_) return handover_.clear();
  watchRawReleases();
  KeySet silenced;
  for (std::size_t key = 0; key < held_.size(); ++key) {
    silenced[key] = held_[key].isDown && held_[key].taker;
    if (silenced[key]) held_[key].isSilenced = true;
  }
  tapKey_.reset();
  handover_.handOver(silenced);
}

// A key that was not held is new input: from the next key on other clients receive their keys again. This press is
// handed over, because an asynchronous grab cannot replay it; a modifier key has set its modifier all the same, and
// typing a lock key would undo it. The grab is active even where no held key is left: its key may have been pressed
// again, or the document registered again, before the ungrab reached the server.
void X11KeyStream::handleHeldPress(const xcb_key_press_event_t& event) {
  if (held_[event.detail].isDown) return handlePress(event);
  watchRawReleases();
  ungrabHeldKeys();
  xi2_.ungrabKeyboard();
  connection_.flush();
  handlePress(event);
  if (!held_[event.detail].taker && !keymap_.isModifierKey(event.detail) && handover_.available()) {
    handover_.add(event.detail, true);
    handOver();
  }
  forgetKeysThatAreUp();
}

void X11KeyStream::handleRelease(const xcb_key_release_event_t& event) {
  note(event);
  handover_.userReleased(event.detail);
  const bool isForClient = tapKey_ && !overlayHasKeyboard_ && tapKey_ != event.detail && !held_[event.detail].taker;
  if (isForClient) {
    handover_.add(event.detail, false);
    handOverSoon();
  }
  noteUp(event.detail);
  // The passive grab ends here: other clients receive the releases of keys pressed during it.
  if (!overlayHasKeyboard_ && !watch_ && downCount_ > 0) {
    watchRawReleases();
    forgetKeysThatAreUp();
  }
}

// Its key is up.
void X11KeyStream::endTapGrab() {
  tapKey_.reset();
  handoverItem_.reset();
  if (!handover_.isEmpty()) handOver();
}

void X11KeyStream::noteUp(xcb_keycode_t code) {
  HeldKey& held = held_[code];
  if (!std::exchange(held.isDown, false)) return;
  --downCount_;
  held.isSilenced = false;
  if (std::exchange(held.isGrabbed, false)) {
    ungrabHeldKey(code);
    connection_.flush();
    reportGrabbedKeys();
  }
  deliver(latest(code, KeyDirection::up));
  if (tapKey_ == code) endTapGrab();
  stopWatchingWhenNothingIsDown();
}

std::optional<KeyConsumer> X11KeyStream::deliver(const X11Key& key) const {
  std::optional<KeyConsumer> taker;
  if (isRecorded(key)) {
    if (offer(KeyConsumer::monitors, key)) taker = KeyConsumer::monitors;
    if (trace::isOn) trace(key, taker);
    return taker;
  }
  // The repeats of a key that outlasts the overlay belong to what is over.
  const bool isOver = key.isRepeat && held_[key.code].isGrabbed;
  if (!isOver && offer(KeyConsumer::tap, key)) taker = KeyConsumer::tap;
  if (!taker && key.taker && key.taker != KeyConsumer::tap && offer(*key.taker, key)) taker = key.taker;
  for (std::size_t i = 1; i < kKeyConsumerCount && !taker; ++i) {
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
  for (HeldKey& held : held_) held.isDown = held.isSilenced = false;
  downCount_ = 0;
}

void X11KeyStream::forgetKeysThatAreUp() {
  const auto cookie = xcb_query_keymap(connection_.get());
  const Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(connection_.get(), cookie, nullptr));
  if (!reply) return;
  for (std::size_t key = 0; key < held_.size(); ++key) {
    const bool isDown = (reply->keys[key / 8] >> (key % 8)) & 1;
    if (!isDown && !held_[key].isSilenced) noteUp(static_cast<xcb_keycode_t>(key));
  }
}

std::optional<PixelPosition> X11KeyStream::pointerAtPress(double maxAge) const {
  if (pressedAt_ == 0 || steadySeconds() - pressedAt_ > maxAge) return std::nullopt;
  return latest_.pointer;
}

}  // namespace rondora::x11
