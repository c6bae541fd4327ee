#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "desktop/wait.h"
#include "desktop/x_client.h"

namespace rondora::live {

/// A key event as an application gets it.
struct LoggedKey {
  std::uint8_t code = 0;
  bool isPress = false;
  /// Modifiers before the event, with locks and layout.
  std::uint16_t state = 0;
  std::chrono::steady_clock::time_point received;
};

/// What a window tells of itself.
struct WindowLook {
  std::string title;
  /// WM_CLASS; the title where it is empty.
  std::string applicationClass = {};
  int width = 300, height = 200;
  /// The user cannot change the size, so that tiling window managers leave it alone.
  bool isFixed = false;
  bool isTransparent = false;
  /// _NET_WM_WINDOW_TYPE; an ordinary window where it is empty.
  std::string type = {};
  /// _NET_WM_ICON; none where it is empty.
  std::vector<std::uint32_t> icon = {};
};

/// An application with one window that writes down the keys which it gets.
class KeyLogger {
 public:
  /// The window is mapped; whether it has the focus is for the window manager to say.
  KeyLogger(const std::string& display, const WindowLook& look);
  KeyLogger(const std::string& display, const std::string& title) : KeyLogger(display, WindowLook{title}) {}

  xcb_window_t window() const { return window_; }
  /// Gives its window the input focus; for a desktop without a window manager.
  void takeFocus();
  /// What came since the last question, once the server has sent everything so far.
  std::vector<LoggedKey> take();
  /// Waits for a release of the key, at most until `deadline`; all that came by then.
  std::vector<LoggedKey> takeUntilReleaseOf(
      std::uint8_t code, std::chrono::steady_clock::time_point deadline = std::chrono::steady_clock::now() + kPatience);

 private:
  void describe(const WindowLook& look);
  void setValues(xcb_atom_t name, xcb_atom_t type, const std::vector<std::uint32_t>& values) const;
  void readEvents();

  XClient client_;
  xcb_window_t window_;
  std::vector<LoggedKey> keys_;
};

}  // namespace rondora::live
