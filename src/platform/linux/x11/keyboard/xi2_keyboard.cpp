#include "platform/linux/x11/keyboard/xi2_keyboard.h"

#include <xkbcommon/xkbcommon-x11.h>

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kAnyModifier[] = {XCB_INPUT_MODIFIER_MASK_ANY};
constexpr std::uint32_t kKeyEvents = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE;

/// The server reports no other raw event of a device to the client that has grabbed it on the root window.
constexpr std::uint32_t kActiveGrabEvents = kKeyEvents | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;

/// Core events carry the group in bits 13 and 14 of their state.
std::uint16_t coreState(const xcb_input_key_press_event_t& key) {
  return static_cast<std::uint16_t>((key.mods.effective & 0xFF) | (key.group.effective & 3U) << 13);
}

/// From 16.16 fixed point.
std::int16_t pixels(xcb_input_fp1616_t value) { return static_cast<std::int16_t>(value >> 16); }

}  // namespace

Xi2Keyboard::Xi2Keyboard(const X11Connection& connection, std::uint8_t inputExtension)
    : connection_(connection), inputExtension_(inputExtension) {
  if (inputExtension == 0) return;
  const std::int32_t id = xkb_x11_get_core_keyboard_device_id(connection.get());
  if (id >= 0) device_ = static_cast<xcb_input_device_id_t>(id);
}

Xi2Keyboard::PassiveGrab Xi2Keyboard::grab(xcb_keycode_t key, std::span<const std::uint32_t> modifiers) const {
  return xcb_input_xi_passive_grab_device(
      connection_.get(), XCB_CURRENT_TIME, connection_.root(), XCB_CURSOR_NONE, key, device_,
      static_cast<std::uint16_t>(modifiers.size()), 1, XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC,
      XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER, &kKeyEvents, modifiers.data());
}

// The reply lists the modifiers that failed.
bool Xi2Keyboard::isGranted(PassiveGrab grab) const {
  const Reply<xcb_input_xi_passive_grab_device_reply_t> reply(
      xcb_input_xi_passive_grab_device_reply(connection_.get(), grab, nullptr));
  return reply && reply->num_modifiers == 0;
}

void Xi2Keyboard::ungrab(xcb_keycode_t key, std::span<const std::uint32_t> modifiers) const {
  xcb_input_xi_passive_ungrab_device(connection_.get(), connection_.root(), key, device_,
                                     static_cast<std::uint16_t>(modifiers.size()), XCB_INPUT_GRAB_TYPE_KEYCODE,
                                     modifiers.data());
}

void Xi2Keyboard::grabHeld(xcb_keycode_t key) const {
  if (available()) xcb_discard_reply(connection_.get(), grab(key, kAnyModifier).sequence);
}

void Xi2Keyboard::ungrabHeld(xcb_keycode_t key) const {
  if (available()) ungrab(key, kAnyModifier);
}

Xi2Keyboard::ActiveGrab Xi2Keyboard::grabKeyboard(xcb_timestamp_t time, xcb_window_t window) const {
  return xcb_input_xi_grab_device(connection_.get(), window, time, XCB_CURSOR_NONE, device_,
                                  XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
                                  XCB_INPUT_GRAB_OWNER_NO_OWNER, 1, &kActiveGrabEvents);
}

Reply<xcb_input_xi_grab_device_reply_t> Xi2Keyboard::reply(ActiveGrab grab) const {
  return Reply<xcb_input_xi_grab_device_reply_t>(xcb_input_xi_grab_device_reply(connection_.get(), grab, nullptr));
}

void Xi2Keyboard::ungrabKeyboard() const {
  if (available()) xcb_input_xi_ungrab_device(connection_.get(), XCB_CURRENT_TIME, device_);
}

std::optional<xcb_key_press_event_t> Xi2Keyboard::coreEvent(const xcb_generic_event_t& event) const {
  if ((event.response_type & 0x7F) != XCB_GE_GENERIC) return std::nullopt;
  const auto& key = reinterpret_cast<const xcb_input_key_press_event_t&>(event);
  const bool isKey = key.event_type == XCB_INPUT_KEY_PRESS || key.event_type == XCB_INPUT_KEY_RELEASE;
  if (key.extension != inputExtension_ || !isKey || key.event != connection_.root()) return std::nullopt;
  xcb_key_press_event_t result{};
  result.response_type = key.event_type == XCB_INPUT_KEY_PRESS ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
  result.detail = static_cast<xcb_keycode_t>(key.detail);
  result.sequence = key.sequence;
  result.time = key.time;
  result.event = result.root = key.root;
  result.state = coreState(key);
  result.root_x = pixels(key.root_x);
  result.root_y = pixels(key.root_y);
  return result;
}

bool Xi2Keyboard::isRepeat(const xcb_generic_event_t& event) {
  const auto& key = reinterpret_cast<const xcb_input_key_press_event_t&>(event);
  return (key.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) != 0;
}

}  // namespace rondora::x11
