#pragma once

#include <CoreGraphics/CoreGraphics.h>

#include <span>

#include "base/display_list.h"
#include "ui/appkit/painting/bitmap.h"

namespace rondora::appkit {

/// A screen seen through one kind of glass, in the picture's pixels.
struct GlassImage {
  BackdropPaint paint;
  Image image;
};

/// What shapes are painted with, in points. Without an image of its kind, glass is imitated.
struct ShapePainter {
  CGContextRef context;
  double pixelsPerPoint = 1;
  std::span<const GlassImage> glass = {};

  void fill(const FillCommand& command) const;
  void stroke(const StrokeCommand& command) const;

 private:
  void paintInside(const Paint& paint) const;
};

/// The smallest rectangle of whole pixels around `rect`.
PixelRect toPixelRect(const Rect& rect, double pixelsPerPoint);

}  // namespace rondora::appkit
