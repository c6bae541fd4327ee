#include "platform/linux/x11/keyboard/grab_handover.h"

#include <xcb/xtest.h>

#include "base/trace.h"

namespace rondora::x11 {

GrabHandover::GrabHandover(X11Connection& connection, const Xi2Keyboard& keyboard, RawKeyReleases& rawReleases)
    : connection_(connection), keyboard_(keyboard), rawReleases_(rawReleases) {
  keys_.reserve(kMaxKeys);
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection.get(), &xcb_test_id);
  available_ = extension != nullptr && extension->present != 0;
}

GrabHandover::~GrabHandover() {
  silence(typed_);
  connection_.flush();
}

void GrabHandover::add(xcb_keycode_t key, bool isDown) {
  if (keys_.size() < kMaxKeys) keys_.push_back({key, isDown});
}

// Under a grab of our own no other client sees how the keys return to their state before the recording. The grab needs
// no reply: it replaces the passive one, or the keyboard is free.
void GrabHandover::handOver(const KeySet& silenced) {
  trace::line("grab: handed over with ", keys_.size(), " key events");
  xcb_discard_reply(connection_.get(), keyboard_.grabKeyboard(XCB_CURRENT_TIME).sequence);
  rewind();
  silence(silenced);
  keyboard_.ungrabKeyboard();
  for (const Key& key : keys_) type(key);
  keys_.clear();
  connection_.flush();
}

void GrabHandover::silence(const KeySet& keys) {
  for (std::size_t key = 0; key < keys.size(); ++key) {
    if (keys[key]) fake(static_cast<xcb_keycode_t>(key), false);
  }
}

void GrabHandover::rewind() {
  KeySet seen, down;
  for (const Key& key : keys_) down[key.code] = key.isDown;
  for (const Key& key : keys_) {
    if (seen[key.code]) continue;
    seen.set(key.code);
    const bool wasDown = !key.isDown;
    if (wasDown != down[key.code]) fake(key.code, wasDown);
  }
}

void GrabHandover::type(const Key& key) {
  fake(key.code, key.isDown);
  typed_[key.code] = key.isDown;
  if (typed_.none()) return releases_.reset();
  if (releases_) return;
  releases_ = rawReleases_.watch([this](xcb_keycode_t released) {
    userReleased(released);
    return false;
  });
}

// The server has ended the key for all clients; the XTEST keyboard still holds it.
void GrabHandover::userReleased(xcb_keycode_t key) {
  if (!typed_[key]) return;
  typed_.reset(key);
  fake(key, false);
  connection_.flush();
  if (typed_.none()) releases_.reset();
}

void GrabHandover::fake(xcb_keycode_t key, bool isDown) {
  const auto type = static_cast<std::uint8_t>(isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE);
  const auto cookie = xcb_test_fake_input(connection_.get(), type, key, XCB_CURRENT_TIME, connection_.root(), 0, 0, 0);
  rawReleases_.disown(cookie.sequence);
}

}  // namespace rondora::x11
