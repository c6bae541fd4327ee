#include "ui/painting/text_halo.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
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

/// Premultiplied, 0 to 255; blue first.
std::array<std::uint32_t, 4> components(Color color) {
  const auto byte = [&color](double component) {
    return static_cast<std::uint32_t>(std::lround(std::clamp(component * color.alpha, 0.0, 1.0) * 255));
  };
  return {byte(color.blue), byte(color.green), byte(color.red), byte(1)};
}

}  // namespace

void drawWithHalo(const PixelBuffer& letters, Color ink, Color halo, int reach) {
  const Mask mask(letters);
  const Mask wide = spread(mask, reach);
  const auto inside = components(ink);
  const auto around = components(halo);
  for (int y = 0; y < letters.height; ++y) {
    std::uint32_t* to = letters.pixels + std::ptrdiff_t{y} * letters.stride;
    for (int x = 0; x < letters.width; ++x) {
      const std::uint32_t letter = mask.row(y)[x];
      const std::uint32_t beside = wide.row(y)[x] * (255 - letter) / 255;
      to[x] = 0;
      for (unsigned i = 0; i < 4; ++i) to[x] |= (inside[i] * letter + around[i] * beside + 127) / 255 << (8 * i);
    }
  }
}

}  // namespace rondora
