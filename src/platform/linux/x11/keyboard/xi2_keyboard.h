#pragma once

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdint>
#include <optional>
#include <span>

#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Grabs of the core keyboard through XI2, on the root window. The server grants a passive one although another client
/// has a core grab of the key; of several that match, it activates the newest. All are asynchronous. Nothing is
/// flushed. Main thread.
class Xi2Keyboard {
 public:
  using PassiveGrab = xcb_input_xi_passive_grab_device_cookie_t;
  using ActiveGrab = xcb_input_xi_grab_device_cookie_t;

  /// `inputExtension` is the extension's major opcode; with 0 (none) nothing is grabbed.
  Xi2Keyboard(const X11Connection& connection, std::uint8_t inputExtension);

  bool available() const { return device_ != 0; }

  /// Grabs the key with each of the modifier masks. `isGranted` must be called once with the result.
  PassiveGrab grab(xcb_keycode_t key, std::span<const std::uint32_t> modifiers) const;
  /// Waits for the reply. False when another client has such a grab.
  bool isGranted(PassiveGrab grab) const;
  void ungrab(xcb_keycode_t key, std::span<const std::uint32_t> modifiers) const;

  /// For a key that is still down when the overlay ungrabs the keyboard, with any modifier: its repeats must neither
  /// type nor activate other grabs. Where another client holds such a grab, it receives the repeats.
  void grabHeld(xcb_keycode_t key) const;
  /// Also ends this client's grabs of the key with single modifiers.
  void ungrabHeld(xcb_keycode_t key) const;

  /// Receives keys, and raw key releases besides.
  ActiveGrab grabKeyboard(xcb_timestamp_t time) const { return grabKeyboard(time, connection_.root()); }
  ActiveGrab grabKeyboard(xcb_timestamp_t time, xcb_window_t window) const;
  Reply<xcb_input_xi_grab_device_reply_t> reply(ActiveGrab grab) const;
  /// Ends an active grab that is none of the core protocol.
  void ungrabKeyboard() const;

  /// The core event equivalent to a key event of these grabs; nothing for any other event.
  std::optional<xcb_key_press_event_t> coreEvent(const xcb_generic_event_t& event) const;
  /// The event, one of these grabs, is a repeat.
  static bool isRepeat(const xcb_generic_event_t& event);

 private:
  const X11Connection& connection_;
  std::uint8_t inputExtension_;
  xcb_input_device_id_t device_ = 0;
};

}  // namespace rondora::x11
