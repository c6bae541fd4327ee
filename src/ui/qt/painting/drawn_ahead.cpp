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

bool DrawnAhead::compose(FrostedGlass& backdrop, const PixelBuffer& target) const {
  const int width = inFrontOfBlack_.width();
  const int height = inFrontOfBlack_.height();
  if (backdrop.width() != width || backdrop.height() != height) return false;
  if (target.width != width || target.height != height) return false;
  std::vector<std::uint32_t> behind(static_cast<std::size_t>(width));
  const std::uint8_t* light = light_.data();
  for (int y = 0; y < height; ++y, light += width) {
    const std::uint32_t* own = pixelsOf(inFrontOfBlack_, y);
    std::uint32_t* row = target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride;
    backdrop.copyRow(y, behind.data());
    for (int x = 0; x < width; ++x) row[x] = own[x] + dimmedPixel(behind[static_cast<std::size_t>(x)], light[x]);
  }
  return true;
}

}  // namespace rondora
