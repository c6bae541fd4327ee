#pragma once

#include <cstdint>
#include <vector>

#include "base/color.h"
#include "platform/picture_rasterizer.h"

namespace rondora {

/// The optical properties of frosted glass.
struct Frost {
  double blurRadius = 0;  // pixels; a point of light spreads about this far
  /// As in BackdropPaint.
  double saturation = 1;
  double brightest = 1;
  Color veil{0, 0, 0, 0};
};

/// A screen seen through the glass. Stored at a lower resolution than the screen's, and enlarged row by row.
class FrostedGlass {
 public:
  /// Reads `screen`, whose alpha is ignored; beyond its edges the outermost pixels repeat. The time is proportional to
  /// the area and independent of the radius.
  FrostedGlass(const PixelBuffer& screen, const Frost& frost);

  int width() const { return width_; }
  int height() const { return height_; }
  /// Writes the `width` opaque pixels of row `y`, 0 to `height` − 1.
  void copyRow(int y, std::uint32_t* target);
  /// As copyRow, for all rows of a buffer of the screen's size.
  void copyTo(const PixelBuffer& target);

 private:
  int width_;
  int height_;
  int factor_;
  int smallWidth_;
  int smallHeight_;
  std::vector<std::uint32_t> small_;
  std::vector<std::uint32_t> line_;
};

/// Fills `target` with the view of `screen`, of the same size, through the glass.
void frost(const PixelBuffer& screen, const Frost& frost, PixelBuffer target);

}  // namespace rondora
