#pragma once

#include <vector>

#include "platform/key_event_poster.h"
#include "platform/linux/x11/x_connection.h"
#include "platform/linux/x11/x_keymap.h"

namespace rondora::x11 {

/// Types through the XTEST extension. Main thread.
class XTestKeyPoster final : public KeyEventPoster {
 public:
  /// Both outlive this.
  XTestKeyPoster(XConnection& connection, XKeymap& keymap);

  /// The server has the XTEST extension.
  bool available() const { return available_; }

  std::optional<SyntheticKeyEvent> makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode,
                                                bool isDown) override;
  void post(const SyntheticKeyEvent& event, KeyEventTap tap) override;

 private:
  void fake(std::uint8_t type, xcb_keycode_t key);

  XConnection& connection_;
  XKeymap& keymap_;
  bool available_ = false;
  std::vector<xcb_keycode_t> pressedModifiers_;
};

}  // namespace rondora::x11
