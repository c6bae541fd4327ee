#include "platform/linux/x11/keyboard/x11_event_monitors.h"

#include <utility>

#include "model/hotkey_config.h"
#include "platform/linux/x11/keyboard/key_codes.h"

namespace rondora::x11 {

X11EventMonitors::X11EventMonitors(X11Keymap& keymap, X11KeyStream& keys) : keymap_(keymap) {
  keys_ = keys.consume(KeyConsumer::monitors, [this](const X11Key& key) { return handleKey(key); });
  modifierObserver_ = keymap.onHeldModifiersChanged([this](std::uint8_t held, xcb_keycode_t key) {
    handleHeldModifiers(held, key);
    return false;
  });
}

Subscription X11EventMonitors::addLocalMonitor(std::uint32_t eventMask, Handler handler) {
  if (eventMask == kFlagsChangedMask) return flagsMonitors_.add(std::move(handler));
  if (eventMask != kKeyDownMask) return keyMonitors_.add(std::move(handler));
  return keyMonitors_.add([handler = std::move(handler)](const KeyEvent& event) {
    return event.type == KeyEventType::keyDown && handler(event);
  });
}

// A modifier key changes the flags; it makes no key-down event. Nor does the key that stands in for Fn while a hotkey
// is recorded; its release may come after the recording.
bool X11EventMonitors::handleKey(const X11Key& key) const {
  const bool isRecorded = key.target == KeyTarget::recorder || key.taker == KeyConsumer::monitors;
  if (isRecorded && virtualKeyCode(key.code) == kFnKeyCode) return handleFn(key);
  if (key.target == KeyTarget::hotkey || keyMonitors_.isEmpty() || keymap_.isModifierKey(key.code)) return false;
  const KeyEventType type = key.direction == KeyDirection::down ? KeyEventType::keyDown : KeyEventType::keyUp;
  return keyMonitors_.offer(keymap_.keyEvent(type, key.code, key.state, key.isRepeat));
}

bool X11EventMonitors::handleFn(const X11Key& key) const {
  keymap_.setFnHeld(key.direction == KeyDirection::down, key.code);
  return true;
}

void X11EventMonitors::handleHeldModifiers(std::uint8_t held, xcb_keycode_t key) {
  if (flagsMonitors_.isEmpty()) return;
  KeyEvent event;
  event.type = KeyEventType::flagsChanged;
  event.keyCode = virtualKeyCode(key);
  event.modifierFlags = keymap_.eventFlags(held) | keymap_.fnFlag();
  flagsMonitors_.offer(event);
}

}  // namespace rondora::x11
