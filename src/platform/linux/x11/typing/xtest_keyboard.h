#pragma once

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdint>
#include <vector>

#include "platform/linux/x11/typing/synthetic_typing.h"

namespace rondora::x11 {

/// The keyboards of an X server and its XTEST keyboard, the source of fake events. One thread at a time.
class XTestKeyboard final : public SyntheticKeyboard {
 public:
  /// Does not own the connection.
  explicit XTestKeyboard(xcb_connection_t* connection);

  /// The server has the extensions that typing needs.
  bool available() const { return available_; }

  /// One round trip; two when a keyboard was plugged or unplugged since the last call.
  KeyboardState readState() override;
  void press(xcb_keycode_t key) override;
  void release(xcb_keycode_t key) override;
  void releaseUnseen(xcb_keycode_t key) override;
  void setLocks(std::uint8_t affected, std::uint8_t locked) override;
  void clearLatches() override;

  /// Releases every key of the XTEST keyboard and waits for the server. True when one was down.
  bool releaseAll();

 private:
  struct Requests;
  /// Slaves of the core keyboard, by device id; 0 for none.
  struct Devices {
    std::uint8_t synthetic = 0;
    std::vector<std::uint8_t> physical;
    friend bool operator==(const Devices&, const Devices&) = default;
  };

  Devices receive(const Requests& requests, KeyboardState& state) const;
  static Devices slavesOf(std::uint8_t master, const xcb_input_xi_query_device_reply_t& list);
  void fake(std::uint8_t type, xcb_keycode_t key) const;

  xcb_connection_t* connection_;
  bool available_ = false;
  xcb_window_t root_ = XCB_NONE;
  Devices devices_;
};

}  // namespace rondora::x11
