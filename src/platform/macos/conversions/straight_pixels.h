#pragma once

#include <algorithm>
#include <cstdint>

namespace rondora::macos {

/// A premultiplied 0xAARRGGBB pixel as a straight one, rounded to the nearest.
constexpr std::uint32_t straightPixel(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  if (alpha == 0) return 0;
  const auto component = [&](std::uint32_t shift) {
    return std::min(((pixel >> shift & 0xFF) * 255 + alpha / 2) / alpha, std::uint32_t{255}) << shift;
  };
  return alpha << 24 | component(16) | component(8) | component(0);
}

}  // namespace rondora::macos
