#pragma once

#include <xcb/xcb.h>

#include <optional>

#include "base/pixel_rect.h"
#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Widths of the four sides of a border, in pixels.
struct FrameExtents {
  int left = 0;
  int right = 0;
  int top = 0;
  int bottom = 0;
  friend bool operator==(const FrameExtents&, const FrameExtents&) = default;

  int horizontal() const { return left + right; }
  int vertical() const { return top + bottom; }
};

/// Where a window is, in pixels of the root window.
struct WindowFrame {
  /// Without the window manager's decoration.
  PixelRect client;
  /// Drawn by the window manager around the client.
  FrameExtents decoration;
  /// Drawn by the application along the inner edges of the client.
  FrameExtents shadow;
  friend bool operator==(const WindowFrame&, const WindowFrame&) = default;

  /// What the user sees as the window: with the decoration, without the shadow.
  PixelRect visible() const;
};

/// The pending replies to the requests behind a frame.
struct WindowFrameCookies {
  xcb_get_geometry_cookie_t geometry;
  xcb_translate_coordinates_cookie_t origin;
  xcb_get_property_cookie_t decoration;
  xcb_get_property_cookie_t shadow;
};

/// Interns the atoms that the functions below need.
void internFrameAtoms(const X11Connection& connection);
/// Does not wait.
WindowFrameCookies requestWindowFrame(const X11Connection& connection, xcb_window_t window);
/// Waits for the replies. Nothing when the window is gone.
std::optional<WindowFrame> readWindowFrame(const X11Connection& connection, const WindowFrameCookies& cookies);
/// One round trip.
std::optional<WindowFrame> windowFrame(const X11Connection& connection, xcb_window_t window);

}  // namespace rondora::x11
