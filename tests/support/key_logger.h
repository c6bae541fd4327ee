#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "base/owned.h"

namespace rondora::live {

/// A key event as an application gets it.
struct LoggedKey {
  std::uint8_t code = 0;
  bool isPress = false;
  /// Modifiers before the event, with locks and layout.
  std::uint16_t state = 0;
  std::chrono::steady_clock::time_point received;
};

/// An application with one window that writes down the keys which it gets.
class KeyLogger {
 public:
  /// The window is mapped; whether it has the focus is for the window manager to say.
  KeyLogger(const std::string& display, const std::string& title);

  xcb_window_t window() const { return window_; }
  /// Gives its window the input focus; for a desktop without a window manager.
  void takeFocus();
  /// What came since the last question, once the server has sent everything so far.
  std::vector<LoggedKey> take();
  /// Waits for a release of the key, at most until `deadline`; all that came by then.
  std::vector<LoggedKey> takeUntilReleaseOf(std::uint8_t code, std::chrono::steady_clock::time_point deadline);

 private:
  void readEvents();

  UniqueCPtr<xcb_connection_t, xcb_disconnect> connection_;
  xcb_window_t window_ = XCB_NONE;
  std::vector<LoggedKey> keys_;
};

}  // namespace rondora::live
