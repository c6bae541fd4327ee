#include "ui/qt/painting/prerendered_pixels.h"

#include <algorithm>
#include <utility>

#include "base/pixels.h"

namespace rondora {
namespace {

const std::uint32_t* pixelsOf(const QImage& image, int y) {
  return reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
}

std::uint32_t green(std::uint32_t pixel) { return pixel >> 8 & 0xFF; }

/// How much of the backdrop shows through; limited so that rounding overflows no component.
std::uint8_t transmission(std::uint32_t black, std::uint32_t white) {
  const std::uint32_t brightest = std::max({black >> 16 & 0xFF, green(black), black & 0xFF});
  return static_cast<std::uint8_t>(std::min(std::max(green(white), green(black)) - green(black), 255 - brightest));
}

}  // namespace

PrerenderedPixels::PrerenderedPixels(QImage onBlack, const QImage& onWhite) : onBlack_(std::move(onBlack)) {
  const int width = onBlack_.width();
  transmission_.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(onBlack_.height()));
  for (int y = 0; y < onBlack_.height(); ++y) {
    const std::uint32_t* black = pixelsOf(onBlack_, y);
    std::transform(black, black + width, pixelsOf(onWhite, y), std::back_inserter(transmission_), transmission);
  }
}

bool PrerenderedPixels::compose(FrostedGlass& backdrop, const PixelBuffer& target) const {
  const int width = onBlack_.width();
  const int height = onBlack_.height();
  if (backdrop.width() != width || backdrop.height() != height) return false;
  if (target.width != width || target.height != height) return false;
  std::vector<std::uint32_t> behind(static_cast<std::size_t>(width));
  const std::uint8_t* light = transmission_.data();
  for (int y = 0; y < height; ++y, light += width) {
    const std::uint32_t* own = pixelsOf(onBlack_, y);
    std::uint32_t* row = target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride;
    backdrop.copyRow(y, behind.data());
    for (int x = 0; x < width; ++x) row[x] = own[x] + dimmedPixel(behind[static_cast<std::size_t>(x)], light[x]);
  }
  return true;
}

}  // namespace rondora
