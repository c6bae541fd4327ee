#include "platform/linux/x11/xtest_key_poster.h"

#include <xcb/xtest.h>

#include <iterator>

#include "platform/linux/x11/key_codes.h"

namespace rondora::x11 {
namespace {

struct ModifierKey {
  std::uint64_t flag = 0;
  std::uint32_t keyCode = 0;  // virtual
};

constexpr ModifierKey kModifierKeys[] = {
    {event_flags::kCommand, 55}, {event_flags::kShift, 56}, {event_flags::kOption, 58}, {event_flags::kControl, 59}};

bool hasTestExtension(xcb_connection_t* connection) {
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_test_id);
  return extension && extension->present;
}

}  // namespace

XTestKeyPoster::XTestKeyPoster(XConnection& connection, XKeymap& keymap)
    : connection_(connection), keymap_(keymap), available_(hasTestExtension(connection.get())) {}

std::optional<SyntheticKeyEvent> XTestKeyPoster::makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode,
                                                              bool isDown) {
  if (!available_ || !xKeyCodeForSending(keyCode)) return std::nullopt;
  return SyntheticKeyEvent{source, keyCode, isDown, 0};
}

void XTestKeyPoster::post(const SyntheticKeyEvent& event, KeyEventTap /*tap*/) {
  const auto key = xKeyCodeForSending(event.keyCode);
  if (!key) return;
  if (event.isDown) {
    for (const ModifierKey& modifier : kModifierKeys) {
      const auto code = xKeyCode(modifier.keyCode);
      if ((event.flags & modifier.flag) == 0 || !code) continue;
      fake(XCB_KEY_PRESS, *code);
      pressedModifiers_.push_back(*code);
    }
    fake(XCB_KEY_PRESS, *key);
  } else {
    fake(XCB_KEY_RELEASE, *key);
    for (auto it = pressedModifiers_.rbegin(); it != pressedModifiers_.rend(); ++it) fake(XCB_KEY_RELEASE, *it);
    pressedModifiers_.clear();
  }
  connection_.flush();
}

void XTestKeyPoster::fake(std::uint8_t type, xcb_keycode_t key) {
  xcb_test_fake_input(connection_.get(), type, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
}

}  // namespace rondora::x11
