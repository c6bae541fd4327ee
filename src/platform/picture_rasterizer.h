#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "base/display_list.h"
#include "base/geometry.h"

namespace rondora {

/// Premultiplied 0xAARRGGBB pixels in the machine's byte order; borrowed.
struct PixelBuffer {
  std::uint32_t* pixels = nullptr;
  int width = 0;
  int height = 0;
  /// Distance between rows in pixels.
  int stride = 0;
};

/// How a picture is to be put into a buffer.
struct PictureView {
  /// Pixels a point.
  double pixelsPerPoint = 1;
  /// Magnifies around the picture's anchor.
  double scale = 1;
  /// 0 to 1.
  double opacity = 1;
  /// What has to be painted, in points; pixels outside stay as they are.
  Rect dirty;
};

/// A picture with what painting it again needs ready (shapes, icons, laid out text).
class PreparedPicture {
 public:
  virtual ~PreparedPicture() = default;

  /// What the screen shows beneath the picture: opaque, pixel by pixel. To be told before the first `paint`; without it
  /// glass is imitated.
  virtual void setBackdrop(const PixelBuffer& screen) = 0;

  /// Clears `view.dirty` to transparent and paints every layer in its state there. `states` has one entry a layer;
  /// between two whole numbers a layer is a mixture of both states.
  virtual void paint(std::span<const double> states, const PictureView& view, PixelBuffer target) = 0;
};

/// Turns pictures into pixels. Main thread.
class PictureRasterizer {
 public:
  virtual ~PictureRasterizer() = default;

  virtual std::unique_ptr<PreparedPicture> prepare(Picture picture, double pixelsPerPoint) = 0;
  /// Does now what `prepare` and the first `paint` of the same picture would take time for.
  virtual void prepareAhead(Picture picture, double pixelsPerPoint) = 0;
};

}  // namespace rondora
