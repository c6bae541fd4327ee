#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "base/display_list.h"
#include "base/geometry.h"

namespace rondora {

/// Premultiplied 0xAARRGGBB pixels in native byte order; borrowed.
struct PixelBuffer {
  std::uint32_t* pixels = nullptr;
  int width = 0;
  int height = 0;
  /// Distance between rows in pixels.
  int stride = 0;
};

/// How to paint a picture into a buffer.
struct PictureView {
  /// Pixels per point.
  double pixelsPerPoint = 1;
  /// Scale about the picture's anchor.
  double scale = 1;
  /// 0 to 1.
  double opacity = 1;
  /// Region to paint, in points; pixels outside it stay unchanged.
  Rect dirty;
};

/// A picture with its shapes, icons and text layout ready for repeated painting.
class PreparedPicture {
 public:
  virtual ~PreparedPicture() = default;

  /// Sets the snapshot of the screen beneath the picture, at the target's resolution; its alpha is ignored. Call it
  /// before the first `paint`; without it the glass is imitated.
  virtual void setSnapshot(const PixelBuffer& screen) = 0;

  /// Clears `view.dirty` to transparent and paints every layer in its state there. `states` has one entry per layer; a
  /// fractional entry blends the two states next to it.
  virtual void paint(std::span<const double> states, const PictureView& view, PixelBuffer target) = 0;

  /// Prepares the next `paint` with other states, so that it is fast.
  virtual void prepareChanges() {}

  /// Takes over icons that were decoded since. False when there are none; otherwise paint everything again.
  virtual bool refreshIcons() { return false; }
};

/// Turns pictures into pixels. Main thread.
class PictureRasterizer {
 public:
  virtual ~PictureRasterizer() = default;

  virtual std::unique_ptr<PreparedPicture> prepare(Picture picture, double pixelsPerPoint) = 0;
  /// Pre-renders a picture, so that `prepare` and the first `paint` of an equal picture are fast.
  virtual void prerender(Picture picture, double pixelsPerPoint) = 0;
};

}  // namespace rondora
