#pragma once

#include <xcb/xproto.h>

#include <cstdint>
#include <optional>

#include "platform/key_event.h"

// Virtual key codes name places on the keyboard, as X key codes do; characters come from X11Keymap.

namespace rondora::x11 {

/// The X key code that reports this virtual key code; nothing when no key does. 63 (Fn) is the Menu key.
std::optional<xcb_keycode_t> xKeyCode(std::uint32_t virtualKeyCode);
/// As xKeyCode, but also for 110 (the context-menu key), which is sent and never reported.
std::optional<xcb_keycode_t> xKeyCodeForSending(std::uint32_t virtualKeyCode);
/// KeyEvent::kNoKeyCode when the key has no virtual key code.
std::uint16_t virtualKeyCode(xcb_keycode_t xKeyCode);

}  // namespace rondora::x11
