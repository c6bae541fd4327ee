#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "base/pixel_rect.h"
#include "platform/linux/x11/overlay/pixel_surface.h"
#include "platform/picture_rasterizer.h"

namespace rondora::x11 {

/// Stands in for a missing compositor: blends the ring with a snapshot of the screen beneath it and gives the window
/// the shape of the ring. Without a snapshot the ring has a hard, dark edge.
class ShapedComposition {
 public:
  /// The screen beneath the window: opaque, of the window's size. Must outlive the object.
  void setSnapshot(const PixelBuffer& snapshot) { snapshot_ = snapshot; }
  bool hasSnapshot() const { return snapshot_.has_value(); }

  /// Blends the premultiplied pixels of `target` inside `rect` over the snapshot; keeps their alpha, which makes the
  /// shape.
  void blend(const PixelBuffer& target, const PixelRect& rect) const;
  /// Sets the window's shape to the visible pixels of `surface` where it changed. Not flushed.
  void applyShape(const X11Connection& connection, xcb_window_t window, const PixelSurface& surface);
  /// Makes the window a full rectangle again, if it had a shape. Not flushed.
  void removeShape(const X11Connection& connection, xcb_window_t window);

 private:
  std::optional<PixelBuffer> snapshot_;
  bool isShaped_ = false;
  std::vector<xcb_rectangle_t> shape_;
  std::vector<xcb_rectangle_t> nextShape_;
};

}  // namespace rondora::x11
