#include "platform/linux/x11/keyboard/held_key_grabs.h"

#include <xkbcommon/xkbcommon-x11.h>

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kAnyModifier = XCB_INPUT_MODIFIER_MASK_ANY;
constexpr std::uint32_t kKeyEvents = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE;

/// Core events carry the group in bits 13 and 14 of their state.
std::uint16_t coreState(const xcb_input_key_press_event_t& key) {
  return static_cast<std::uint16_t>((key.mods.effective & 0xFF) | (key.group.effective & 3U) << 13);
}

/// From 16.16 fixed point.
std::int16_t pixels(xcb_input_fp1616_t value) { return static_cast<std::int16_t>(value >> 16); }

}  // namespace

HeldKeyGrabs::HeldKeyGrabs(const X11Connection& connection, std::uint8_t inputExtension)
    : connection_(connection), inputExtension_(inputExtension) {
  if (inputExtension == 0) return;
  const std::int32_t id = xkb_x11_get_core_keyboard_device_id(connection.get());
  if (id >= 0) keyboard_ = static_cast<xcb_input_device_id_t>(id);
}

void HeldKeyGrabs::grab(xcb_keycode_t key) const {
  if (keyboard_ == 0) return;
  const auto cookie = xcb_input_xi_passive_grab_device(
      connection_.get(), XCB_CURRENT_TIME, connection_.root(), XCB_CURSOR_NONE, key, keyboard_, 1, 1,
      XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
      XCB_INPUT_GRAB_OWNER_NO_OWNER, &kKeyEvents, &kAnyModifier);
  // Where another client holds such a grab, this one fails and that client receives the repeats.
  xcb_discard_reply(connection_.get(), cookie.sequence);
}

void HeldKeyGrabs::ungrab(xcb_keycode_t key) const {
  if (keyboard_ == 0) return;
  xcb_input_xi_passive_ungrab_device(connection_.get(), connection_.root(), key, keyboard_, 1,
                                     XCB_INPUT_GRAB_TYPE_KEYCODE, &kAnyModifier);
}

void HeldKeyGrabs::ungrabKeyboard() const {
  if (keyboard_ != 0) xcb_input_xi_ungrab_device(connection_.get(), XCB_CURRENT_TIME, keyboard_);
}

std::optional<xcb_key_press_event_t> HeldKeyGrabs::coreEvent(const xcb_generic_event_t& event) const {
  if ((event.response_type & 0x7F) != XCB_GE_GENERIC) return std::nullopt;
  const auto& key = reinterpret_cast<const xcb_input_key_press_event_t&>(event);
  const bool isKey = key.event_type == XCB_INPUT_KEY_PRESS || key.event_type == XCB_INPUT_KEY_RELEASE;
  if (key.extension != inputExtension_ || !isKey || key.event != connection_.root()) return std::nullopt;
  xcb_key_press_event_t result{};
  result.response_type = key.event_type == XCB_INPUT_KEY_PRESS ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
  result.detail = static_cast<xcb_keycode_t>(key.detail);
  result.time = key.time;
  result.event = result.root = key.root;
  result.state = coreState(key);
  result.root_x = pixels(key.root_x);
  result.root_y = pixels(key.root_y);
  return result;
}

}  // namespace rondora::x11
