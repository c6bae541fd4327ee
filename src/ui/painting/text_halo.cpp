#include "ui/painting/text_halo.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace rondora {
namespace {

/// The alpha of a buffer.
struct Mask {
  explicit Mask(const PixelBuffer& letters)
      : width(letters.width),
        height(letters.height),
        alpha(static_cast<std::size_t>(letters.width) * static_cast<std::size_t>(letters.height)) {
    for (int y = 0; y < height; ++y) {
      const std::uint32_t* from = letters.pixels + std::ptrdiff_t{y} * letters.stride;
      std::transform(from, from + width, row(y), [](std::uint32_t pixel) { return pixel >> 24; });
    }
  }

  std::uint8_t* row(int y) { return alpha.data() + std::ptrdiff_t{y} * width; }
  const std::uint8_t* row(int y) const { return alpha.data() + std::ptrdiff_t{y} * width; }

  /// Every pixel at least as opaque as that of `other` which lies (-dx, -dy) away.
  void add(const Mask& other, int dx, int dy) {
    for (int y = std::max(0, dy); y < std::min(height, height + dy); ++y) {
      const std::uint8_t* from = other.row(y - dy);
      std::uint8_t* to = row(y);
      for (int x = std::max(0, dx); x < std::min(width, width + dx); ++x) to[x] = std::max(to[x], from[x - dx]);
    }
  }

  int width;
  int height;
  std::vector<std::uint8_t> alpha;
};

Mask spread(const Mask& letters, int reach) {
  Mask wide = letters;
  for (int step = 1; step <= reach; ++step) {
    const int across = static_cast<int>(std::lround(step / std::sqrt(2.0)));
    for (const int side : {-1, 1}) {
      wide.add(letters, side * step, 0);
      wide.add(letters, 0, side * step);
      wide.add(letters, side * across, across);
      wide.add(letters, side * across, -across);
    }
  }
  return wide;
}

struct Premultiplied {
  explicit Premultiplied(Color color)
      : components{color.blue * color.alpha, color.green * color.alpha, color.red * color.alpha, color.alpha} {}
  double components[4];
};

std::uint32_t blended(const Premultiplied& ink, double inkShare, const Premultiplied& halo, double haloShare) {
  std::uint32_t pixel = 0;
  for (unsigned i = 0; i < 4; ++i) {
    const double component = ink.components[i] * inkShare + halo.components[i] * haloShare;
    pixel |= static_cast<std::uint32_t>(component * 255 + 0.5) << (8 * i);
  }
  return pixel;
}

}  // namespace

void drawWithHalo(const PixelBuffer& letters, Color ink, Color halo, int reach) {
  const Mask mask(letters);
  const Mask wide = spread(mask, reach);
  const Premultiplied inside(ink);
  const Premultiplied around(halo);
  for (int y = 0; y < letters.height; ++y) {
    std::uint32_t* to = letters.pixels + std::ptrdiff_t{y} * letters.stride;
    for (int x = 0; x < letters.width; ++x) {
      const double letter = mask.row(y)[x] / 255.0;
      to[x] = wide.row(y)[x] == 0 ? 0 : blended(inside, letter, around, wide.row(y)[x] / 255.0 * (1 - letter));
    }
  }
}

}  // namespace rondora
