#include "ui/appkit/painting/icon_plates.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "pie/picture/icon_plate.h"
#include "ui/appkit/painting/core_graphics_shapes.h"

namespace rondora::appkit {
namespace {

/// Fitted into a square, in its middle.
CGRect placeOf(const Image& icon, double corner, double side) {
  const PixelRect size = sizeOf(icon);
  const double scale = side / std::max({size.width, size.height, 1});
  const CGSize fitted = {size.width * scale, size.height * scale};
  return {{corner + (side - fitted.width) / 2, corner + (side - fitted.height) / 2}, fitted};
}

std::uint32_t pixelAt(const PixelBuffer& buffer, int x, int y) {
  if (x < 0 || y < 0 || x >= buffer.width || y >= buffer.height) return 0;
  return buffer.pixels[static_cast<std::ptrdiff_t>(y) * buffer.stride + x];
}

bool isSolid(const PixelBuffer& buffer, int x, int y) { return pixelAt(buffer, x, y) >> 24 >= 128; }

Color colorOf(std::uint32_t pixel) {
  const double alpha = pixel >> 24;
  return {(pixel >> 16 & 0xFF) / alpha, (pixel >> 8 & 0xFF) / alpha, (pixel & 0xFF) / alpha, 1};
}

/// The colours along the edge of what is solid.
std::vector<Color> outlineOf(const PixelBuffer& buffer) {
  std::vector<Color> outline;
  for (int y = 0; y < buffer.height; ++y) {
    for (int x = 0; x < buffer.width; ++x) {
      if (!isSolid(buffer, x, y)) continue;
      const bool isInside = isSolid(buffer, x - 1, y) && isSolid(buffer, x + 1, y) && isSolid(buffer, x, y - 1) &&
                            isSolid(buffer, x, y + 1);
      if (!isInside) outline.push_back(colorOf(pixelAt(buffer, x, y)));
    }
  }
  return outline;
}

Image drawnOn(Color plate, const Image& icon, double side) {
  Bitmap bitmap(static_cast<int>(side), static_cast<int>(side));
  const Path outline = Path::roundedRect({{0, 0}, {side, side}}, icon_plate::kCornerRadius * side);
  ShapePainter{bitmap.context()}.fill({outline, SolidPaint{plate}});
  const double inner = icon_plate::kIconSide * side;
  drawImage(bitmap.context(), icon, placeOf(icon, (side - inner) / 2, inner));
  return bitmap.image();
}

}  // namespace

Image platedIcon(const Image& icon, const IconBackgrounds& backgrounds, int side) {
  Bitmap bitmap(side, side);
  drawImage(bitmap.context(), icon, placeOf(icon, 0, side));
  const auto plate = plateFor(outlineOf(bitmap.buffer()), backgrounds);
  return plate ? drawnOn(*plate, icon, side) : icon;
}

}  // namespace rondora::appkit
