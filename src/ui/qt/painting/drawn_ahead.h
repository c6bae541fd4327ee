#pragma once

#include <QImage>
#include <QSize>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/picture_rasterizer.h"
#include "ui/painting/frosted_glass.h"

namespace rondora {

/// The pixels of a picture but for what shines through its glass, which comes in with one pass over them.
class DrawnAhead {
 public:
  /// The same picture with glass in front of black and of white; both premultiplied and of one size. How much light
  /// comes through a pixel is how much they differ.
  DrawnAhead(QImage inFrontOfBlack, const QImage& inFrontOfWhite);

  /// Writes the picture in front of `backdrop`. Both are of the picture's size; false, and `target` as it was, where
  /// they are not.
  bool compose(FrostedGlass& backdrop, const PixelBuffer& target) const;

  std::size_t byteCount() const { return byteCount(inFrontOfBlack_.size()); }
  /// Of a picture of that many pixels.
  static std::size_t byteCount(QSize size) {
    return (sizeof(std::uint32_t) + sizeof(std::uint8_t)) * static_cast<std::size_t>(size.width()) *
           static_cast<std::size_t>(size.height());
  }

 private:
  QImage inFrontOfBlack_;
  std::vector<std::uint8_t> light_;
};

}  // namespace rondora
