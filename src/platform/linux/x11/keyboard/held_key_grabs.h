#pragma once

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdint>
#include <optional>

#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Passive grabs of single keys with any modifier, for keys that are still down when the overlay ungrabs the keyboard:
/// their repeats must neither type nor activate other grabs. They are XI2 grabs: the server grants those although
/// another client has a core grab of the key, and checks them before core grabs. Nothing is flushed. Main thread.
class HeldKeyGrabs {
 public:
  /// `inputExtension` is the extension's major opcode; with 0 (none) nothing is grabbed.
  HeldKeyGrabs(const X11Connection& connection, std::uint8_t inputExtension);

  void grab(xcb_keycode_t key) const;
  void ungrab(xcb_keycode_t key) const;
  /// Ends the active grab that a repeat may have started.
  void ungrabKeyboard() const;

  /// The core event equivalent to an event of these grabs; nothing for any other event.
  std::optional<xcb_key_press_event_t> coreEvent(const xcb_generic_event_t& event) const;

 private:
  const X11Connection& connection_;
  std::uint8_t inputExtension_;
  xcb_input_device_id_t keyboard_ = 0;
};

}  // namespace rondora::x11
