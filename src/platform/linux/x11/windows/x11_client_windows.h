#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/windows/window_properties.h"

namespace rondora::x11 {

/// Straight 0xAARRGGBB pixels, row by row.
struct WindowIcon {
  std::vector<std::uint32_t> pixels;
  int width = 0;
  int height = 0;
};

/// The windows of all applications, from the window manager (EWMH), otherwise from the server. A window may vanish at
/// any time; queries about a vanished one return nothing. Main thread.
class X11ClientWindows {
 public:
  /// `connection` must outlive the object.
  explicit X11ClientWindows(X11Connection& connection);

  /// All windows, topmost first; four round trips under a window manager.
  std::vector<WindowInfo> windows() const;
  std::optional<WindowInfo> describe(xcb_window_t window) const;
  /// The active window, else the one that holds the input focus; 0 for none.
  xcb_window_t activeWindow() const;
  /// The smallest icon of at least 128 pixels, else the largest, but none beyond PictureDecoder::kMaxSide. Reads the
  /// pixels of no other.
  std::optional<WindowIcon> icon(xcb_window_t window) const;

 private:
  std::vector<xcb_window_t> managedWindows() const;
  std::vector<xcb_window_t> unmanagedWindows() const;
  std::vector<WindowInfo> describeAll(std::span<const xcb_window_t> windows) const;
  xcb_window_t focusedWindow() const;

  X11Connection& connection_;
  bool hasResourceExtension_ = false;
};

}  // namespace rondora::x11
