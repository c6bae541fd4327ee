#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "desktop/wait.h"
#include "desktop/x_client.h"

namespace rondora::live {

/// A key event as an application receives it.
struct LoggedKey {
  std::uint8_t code = 0;
  bool isPress = false;
  /// Modifiers before the event, with locks and layout.
  std::uint16_t state = 0;
  std::chrono::steady_clock::time_point received;
};

/// The properties of a window.
struct WindowLook {
  std::string title;
  /// WM_CLASS; the title if empty.
  std::string applicationClass = {};
  int width = 300, height = 200;
  /// Fixed size; tiling window managers let such windows float.
  bool isFixed = false;
  bool isTransparent = false;
  /// _NET_WM_WINDOW_TYPE; an ordinary window if empty.
  std::string type = {};
  /// _NET_WM_ICON; none if empty.
  std::vector<std::uint32_t> icon = {};
};

/// An application with one window that records its key events.
class KeyLogger {
 public:
  /// Maps the window; the window manager decides about the focus.
  KeyLogger(const std::string& display, const WindowLook& look);
  KeyLogger(const std::string& display, const std::string& title) : KeyLogger(display, WindowLook{title}) {}

  xcb_window_t window() const { return window_; }
  /// Sets the input focus to its window; for a desktop without a window manager.
  void takeFocus();
  /// The events since the last call, after a round trip to the server.
  std::vector<LoggedKey> take();
  /// Waits for a release of the key, at most until `deadline`; returns the events until then.
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
