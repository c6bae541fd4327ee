#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/display_list.h"
#include "platform/picture_rasterizer.h"
#include "ui/appkit/painting/bitmap.h"
#include "ui/appkit/painting/icon_images.h"
#include "ui/appkit/painting/prepared_layer.h"

namespace rondora::appkit {

/// A picture prepared for painting at one scale. One panel at a time shows it, between `begin` and `end`. Its pixels
/// are kept between showings, unless they show the screen, so that only layers whose state changed are drawn again.
/// Main thread.
class DrawnPicture {
 public:
  DrawnPicture(Picture picture, double pixelsPerPoint, IconImages& icons);
  DrawnPicture(const DrawnPicture&) = delete;
  DrawnPicture& operator=(const DrawnPicture&) = delete;

  bool isOf(const Picture& picture, double pixelsPerPoint) const;
  bool isShown() const { return isShown_; }
  std::size_t byteCount() const;

  void begin();
  void end();
  /// Draws the first frame. Not while shown.
  void prerender();

  // As in PreparedPicture.
  void setSnapshot(const PixelBuffer& screen);
  void paint(std::span<const double> states, const PictureView& view, PixelBuffer target);
  bool refreshIcons();

 private:
  void compose(std::span<const double> states);
  void draw(const PixelRect& area);
  void copyTo(PixelBuffer target, const PixelRect& dirty);
  void drawScaled(PixelBuffer target, const PixelRect& dirty, const PictureView& view);

  Picture picture_;
  double pixelsPerPoint_;
  IconImages& icons_;
  Bitmap composed_;
  std::vector<PreparedLayer> layers_;
  std::vector<GlassImage> glass_;
  /// The states that `composed_` shows; empty while it shows nothing of use.
  std::vector<double> shown_;
  bool isShown_ = false;
};

}  // namespace rondora::appkit
