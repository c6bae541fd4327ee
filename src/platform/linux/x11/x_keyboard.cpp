#include "platform/linux/x11/x_keyboard.h"

#include <xcb/xinput.h>

#include <utility>

namespace rondora::x11 {
namespace {

// Raw events reach a client during another one's grab from version 2.1 on.
constexpr std::uint16_t kInputMajor = 2;
constexpr std::uint16_t kInputMinor = 2;

constexpr double kSettleSeconds = 0.25;

std::uint8_t setUpInputExtension(xcb_connection_t* connection) {
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_input_id);
  if (extension == nullptr || !extension->present) return 0;
  const auto cookie = xcb_input_xi_query_version(connection, kInputMajor, kInputMinor);
  const Reply<xcb_input_xi_query_version_reply_t> reply(xcb_input_xi_query_version_reply(connection, cookie, nullptr));
  return extension->major_opcode;
}

}  // namespace

XKeyboard::XKeyboard(XConnection& connection, MainQueue& mainQueue)
    : connection_(connection),
      mainQueue_(mainQueue),
      inputExtension_(setUpInputExtension(connection.get())),
      heldKeys_(connection, inputExtension_) {
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

XKeyboard::~XKeyboard() {
  if (isWatching_) selectRawReleases(0);
}

void XKeyboard::beginOverlay() {
  overlayHasKeyboard_ = true;
  settling_.reset();
  heldKeys_.releaseAll();
}

// From the watch on, each release reaches us: before the ungrab by the grab, after it as a raw event. The held keys are
// taken before the keyboard is given back, so that no repeat slips through.
void XKeyboard::endOverlay() {
  overlayHasKeyboard_ = false;
  watchRawReleases();
  for (std::size_t key = 0; key < down_.size(); ++key) {
    if (down_[key]) heldKeys_.hold(static_cast<xcb_keycode_t>(key));
  }
  settling_ = mainQueue_.workItem(kSettleSeconds, [this] { settled(); });
}

void XKeyboard::settled() {
  settling_.reset();
  stopWatchingWhenNothingIsDown();
}

bool XKeyboard::handleEvent(const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7F;
  if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (key.event != connection_.root()) return false;  // a window of the toolkit's
    type == XCB_KEY_PRESS ? handlePress(key) : handleRelease(key);
    return true;
  }
  if (type != XCB_GE_GENERIC) return false;
  if (const auto key = heldKeys_.coreEvent(event)) {
    key->response_type == XCB_KEY_PRESS ? handleHeldPress(*key) : handleRelease(*key);
    return true;
  }
  const auto& raw = reinterpret_cast<const xcb_input_raw_key_release_event_t&>(event);
  if (raw.extension == inputExtension_ && raw.event_type == XCB_INPUT_RAW_KEY_RELEASE && raw.detail < down_.size()) {
    noteUp(static_cast<xcb_keycode_t>(raw.detail));
  }
  return false;
}

void XKeyboard::handlePress(const xcb_key_press_event_t& event) {
  const bool isRepeat = down_[event.detail];
  down_.set(event.detail);
  lastState_ = event.state;
  keys_.offer({event.detail, event.state, KeyDirection::down, isRepeat, overlayHasKeyboard_});
}

// A key that was not held goes on to other things: the keyboard is free for them again from here on.
void XKeyboard::handleHeldPress(const xcb_key_press_event_t& event) {
  const bool isRepeat = down_[event.detail];
  if (!isRepeat) heldKeys_.releaseAll();
  handlePress(event);
  if (isRepeat) return;
  watchRawReleases();
  forgetKeysThatAreUp();
}

void XKeyboard::handleRelease(const xcb_key_release_event_t& event) {
  lastState_ = event.state;
  noteUp(event.detail);
  // The passive grab ends here; keys pressed meanwhile are released to somebody else.
  if (!overlayHasKeyboard_ && !isWatching_ && down_.any()) {
    watchRawReleases();
    forgetKeysThatAreUp();
  }
}

void XKeyboard::noteUp(xcb_keycode_t key) {
  if (!down_[key]) return;
  down_.reset(key);
  heldKeys_.release(key);
  keys_.offer({key, lastState_, KeyDirection::up, false, overlayHasKeyboard_});
  stopWatchingWhenNothingIsDown();
}

void XKeyboard::watchRawReleases() {
  if (std::exchange(isWatching_, true)) return;
  selectRawReleases(XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE);
}

void XKeyboard::stopWatchingWhenNothingIsDown() {
  if (!isWatching_ || settling_ || down_.any()) return;
  isWatching_ = false;
  selectRawReleases(0);
}

// Raw key events are selected nowhere else on the master devices, so the mask is ours alone.
void XKeyboard::selectRawReleases(std::uint32_t mask) {
  if (inputExtension_ == 0) {
    down_.reset();
    return;
  }
  struct {
    xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
    std::uint32_t mask;
  } selection{.mask = mask};
  xcb_input_xi_select_events(connection_.get(), connection_.root(), 1, &selection.head);
  connection_.flush();
}

void XKeyboard::forgetKeysThatAreUp() {
  const auto cookie = xcb_query_keymap(connection_.get());
  const Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(connection_.get(), cookie, nullptr));
  if (!reply) return;
  for (std::size_t key = 0; key < down_.size(); ++key) {
    const bool isDown = (reply->keys[key / 8] >> (key % 8)) & 1;
    if (!isDown) noteUp(static_cast<xcb_keycode_t>(key));
  }
}

}  // namespace rondora::x11
