#include "platform/linux/x11/typing/xtest_keyboard.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <string_view>
#include <utility>

#include "platform/linux/x11/connection/input_extension.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/connection/xcb_xkb.h"

namespace rondora::x11 {
namespace {

// The server names the keyboard behind core XTEST requests "<master> XTEST keyboard".
constexpr std::string_view kSyntheticNameEnd = "XTEST keyboard";
constexpr std::uint8_t kEveryModifier = 0xFF;
// The first read knows no keyboards yet; later ones seldom find new ones.
constexpr int kAttempts = 4;

bool hasExtension(xcb_connection_t* connection, xcb_extension_t& extension) {
  const xcb_query_extension_reply_t* reply = xcb_get_extension_data(connection, &extension);
  return reply != nullptr && reply->present;
}

bool setUpExtensions(xcb_connection_t* connection) {
  if (!hasExtension(connection, xcb_test_id) || !hasExtension(connection, xcb_xkb_id)) return false;
  const auto cookie = xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
  const bool hasInput = setUpInputExtension(connection) != 0;
  const Reply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(connection, cookie, nullptr));
  return hasInput && reply && reply->supported;
}

KeySet keySet(const std::uint8_t (&bits)[32]) {
  KeySet keys;
  for (std::size_t key = 0; key < keys.size(); ++key) keys[key] = ((bits[key / 8] >> (key % 8)) & 1) != 0;
  return keys;
}

/// Empty when the device is gone.
KeySet keysOf(xcb_connection_t* connection, xcb_input_query_device_state_cookie_t cookie) {
  const Reply<xcb_input_query_device_state_reply_t> reply(
      xcb_input_query_device_state_reply(connection, cookie, nullptr));
  if (!reply) return {};
  for (auto it = xcb_input_query_device_state_classes_iterator(reply.get()); it.rem > 0;
       xcb_input_input_state_next(&it)) {
    if (it.data->class_id != XCB_INPUT_INPUT_CLASS_KEY) continue;
    return keySet(reinterpret_cast<const xcb_input_key_state_t*>(it.data)->keys);
  }
  return {};
}

std::string_view nameOf(const xcb_input_xi_device_info_t& device) {
  return {xcb_input_xi_device_info_name(&device), device.name_len};
}

}  // namespace

XTestKeyboard::XTestKeyboard(xcb_connection_t* connection)
    : connection_(connection), available_(setUpExtensions(connection)) {
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

// All requests go out before the first reply is awaited.
struct XTestKeyboard::Requests {
  Requests(xcb_connection_t* connection, const Devices& known)
      : keymap(xcb_query_keymap(connection)),
        synthetic(xcb_input_query_device_state(connection, known.synthetic)),
        physical(ask(connection, known.physical)),
        state(xcb_xkb_get_state(connection, XCB_XKB_ID_USE_CORE_KBD)),
        controls(xcb_xkb_get_controls(connection, XCB_XKB_ID_USE_CORE_KBD)),
        devices(xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL)) {}

  static std::vector<xcb_input_query_device_state_cookie_t> ask(xcb_connection_t* connection,
                                                                const std::vector<std::uint8_t>& ids) {
    std::vector<xcb_input_query_device_state_cookie_t> cookies;
    cookies.reserve(ids.size());
    for (const std::uint8_t id : ids) cookies.push_back(xcb_input_query_device_state(connection, id));
    return cookies;
  }

  xcb_query_keymap_cookie_t keymap;
  xcb_input_query_device_state_cookie_t synthetic;
  std::vector<xcb_input_query_device_state_cookie_t> physical;
  xcb_xkb_get_state_cookie_t state;
  xcb_xkb_get_controls_cookie_t controls;
  xcb_input_xi_query_device_cookie_t devices;
};

KeyboardState XTestKeyboard::readState() {
  KeyboardState state;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    state = {};
    Devices present = receive(Requests(connection_, devices_), state);
    if (std::exchange(devices_, present) == present) break;
  }
  return state;
}

/// Returns the current keyboards.
XTestKeyboard::Devices XTestKeyboard::receive(const Requests& requests, KeyboardState& state) const {
  const Reply<xcb_query_keymap_reply_t> keymap(xcb_query_keymap_reply(connection_, requests.keymap, nullptr));
  if (keymap) state.logical = keySet(keymap->keys);
  state.synthetic = keysOf(connection_, requests.synthetic);
  for (const auto& cookie : requests.physical) state.physical |= keysOf(connection_, cookie);
  const Reply<xcb_xkb_get_state_reply_t> xkb(xcb_xkb_get_state_reply(connection_, requests.state, nullptr));
  if (xkb) {
    state.lockedMask = xkb->lockedMods;
    state.latchedMask = xkb->latchedMods;
  }
  const Reply<xcb_xkb_get_controls_reply_t> controls(
      xcb_xkb_get_controls_reply(connection_, requests.controls, nullptr));
  state.stickyKeys = controls && (controls->enabledControls & XCB_XKB_BOOL_CTRL_STICKY_KEYS) != 0;
  const Reply<xcb_input_xi_query_device_reply_t> devices(
      xcb_input_xi_query_device_reply(connection_, requests.devices, nullptr));
  return xkb && devices ? slavesOf(xkb->deviceID, *devices) : devices_;
}

XTestKeyboard::Devices XTestKeyboard::slavesOf(std::uint8_t master, const xcb_input_xi_query_device_reply_t& list) {
  Devices devices;
  for (auto it = xcb_input_xi_query_device_infos_iterator(&list); it.rem > 0; xcb_input_xi_device_info_next(&it)) {
    if (it.data->type != XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD || it.data->attachment != master) continue;
    const auto id = static_cast<std::uint8_t>(it.data->deviceid);
    if (nameOf(*it.data).ends_with(kSyntheticNameEnd)) {
      devices.synthetic = id;
    } else {
      devices.physical.push_back(id);
    }
  }
  return devices;
}

void XTestKeyboard::fake(std::uint8_t type, xcb_keycode_t key) const {
  xcb_test_fake_input(connection_, type, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
}

void XTestKeyboard::press(xcb_keycode_t key) { fake(XCB_KEY_PRESS, key); }
void XTestKeyboard::release(xcb_keycode_t key) { fake(XCB_KEY_RELEASE, key); }

// The event goes to the client that has grabbed the keyboard: this program, unless another client holds a grab.
void XTestKeyboard::releaseUnseen(xcb_keycode_t key) {
  const auto grab =
      xcb_grab_keyboard(connection_, 0, root_, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  release(key);
  xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
  xcb_discard_reply(connection_, grab.sequence);
}

// The server refuses values for locks that are not affected.
void XTestKeyboard::setLocks(std::uint8_t affected, std::uint8_t locked) {
  xcb_xkb_latch_lock_state(connection_, XCB_XKB_ID_USE_CORE_KBD, affected, affected & locked, 0, 0, 0, 0, 0);
}

void XTestKeyboard::clearLatches() {
  xcb_xkb_latch_lock_state(connection_, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 0, 0, kEveryModifier, 0, 0);
}

bool XTestKeyboard::releaseAll() {
  const KeySet held = readState().synthetic;
  for (std::size_t key = 0; key < held.size(); ++key) {
    if (held[key]) release(static_cast<xcb_keycode_t>(key));
  }
  if (held.any()) readState();
  return held.any();
}

}  // namespace rondora::x11
