#pragma once

#include <QImage>
#include <QSize>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/picture_rasterizer.h"
#include "ui/painting/frosted_glass.h"

namespace rondora {

/// The pixels of a picture without its backdrop, which one pass over them adds.
class PrerenderedPixels {
 public:
  /// The same picture on a black and on a white backdrop, both premultiplied and of one size: the difference of two
  /// pixels is the light that they let through.
  PrerenderedPixels(QImage onBlack, const QImage& onWhite);

  /// Writes the picture over `backdrop`. Returns false, without touching `target`, unless both have the picture's size.
  bool compose(FrostedGlass& backdrop, const PixelBuffer& target) const;

  std::size_t byteCount() const { return byteCount(onBlack_.size()); }
  /// For a picture of that many pixels.
  static std::size_t byteCount(QSize size) {
    return (sizeof(std::uint32_t) + sizeof(std::uint8_t)) * static_cast<std::size_t>(size.width()) *
           static_cast<std::size_t>(size.height());
  }

 private:
  QImage onBlack_;
  std::vector<std::uint8_t> transmission_;
};

}  // namespace rondora
