#include "ui/qt/painting/drawn_ahead.h"

#include <algorithm>
#include <utility>

#include "base/pixels.h"

namespace rondora {
namespace {

const std::uint32_t* pixelsOf(const QImage& image, int y) {
  return reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
}

std::uint32_t green(std::uint32_t pixel) { return pixel >> 8 & 0xFF; }

/// How much comes through; never so much, for the rounding of a component, that it would add up to more than there is.
std::uint8_t lightThrough(std::uint32_t black, std::uint32_t white) {
  const std::uint32_t brightest = std::max({black >> 16 & 0xFF, green(black), black & 0xFF});
  return static_cast<std::uint8_t>(std::min(std::max(green(white), green(black)) - green(black), 255 - brightest));
}

}  // namespace

DrawnAhead::DrawnAhead(QImage inFrontOfBlack, const QImage& inFrontOfWhite)
    : inFrontOfBlack_(std::move(inFrontOfBlack)) {
  const int width = inFrontOfBlack_.width();
  light_.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(inFrontOfBlack_.height()));
  for (int y = 0; y < inFrontOfBlack_.height(); ++y) {
    const std::uint32_t* black = pixelsOf(inFrontOfBlack_, y);
    std::transform(black, black + width, pixelsOf(inFrontOfWhite, y), std::back_inserter(light_), lightThrough);
  }
}

bool DrawnAhead::compose(const QImage& backdrop, QImage& target) const {
  const int width = inFrontOfBlack_.width();
  if (backdrop.size() != inFrontOfBlack_.size() || target.size() != inFrontOfBlack_.size()) return false;
  const std::uint8_t* light = light_.data();
  for (int y = 0; y < target.height(); ++y, light += width) {
    const std::uint32_t* own = pixelsOf(inFrontOfBlack_, y);
    const std::uint32_t* behind = pixelsOf(backdrop, y);
    auto* row = reinterpret_cast<std::uint32_t*>(target.scanLine(y));
    for (int x = 0; x < width; ++x) row[x] = own[x] + dimmedPixel(behind[x], light[x]);
  }
  return true;
}

}  // namespace rondora
