#pragma once

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <bitset>
#include <cstdint>
#include <optional>

#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Keys that are still down when the overlay lets go of the keyboard: their repeats are to type nothing and to start
/// nothing, whatever modifiers are left. A passive grab of each such key, in force with any modifier, takes them. It is
/// one of the input extension: those are granted beside other clients' grabs of the key and come before them. Main
/// thread.
class HeldKeyGrabs {
 public:
  /// `inputExtension` is the extension's major opcode, 0 where there is none: nothing is held then.
  HeldKeyGrabs(const X11Connection& connection, std::uint8_t inputExtension);
  ~HeldKeyGrabs();
  HeldKeyGrabs(const HeldKeyGrabs&) = delete;
  HeldKeyGrabs& operator=(const HeldKeyGrabs&) = delete;

  /// Not flushed.
  void hold(xcb_keycode_t key);
  void release(xcb_keycode_t key);
  /// Also ends the grab of the keyboard that a repeat may have started.
  void releaseAll();

  /// What one of these grabs tells of, as the core event that says the same; nothing when `event` is another one.
  std::optional<xcb_key_press_event_t> coreEvent(const xcb_generic_event_t& event) const;

 private:
  void ungrab(xcb_keycode_t key) const;

  const X11Connection& connection_;
  std::uint8_t inputExtension_;
  xcb_input_device_id_t keyboard_ = 0;
  std::bitset<256> held_;
};

}  // namespace rondora::x11
