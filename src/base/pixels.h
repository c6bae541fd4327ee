#pragma once

#include <cstdint>

// Arithmetic on 0xAARRGGBB pixels; each multiplication serves two components.

namespace rondora {

inline constexpr std::uint32_t kEvenComponents = 0x00FF00FF;

/// All four components mixed: `weight` 0 gives `from`, 256 would give `to`.
constexpr std::uint32_t mixedPixel(std::uint32_t from, std::uint32_t to, std::uint32_t weight) {
  const std::uint32_t rest = 256 - weight;
  const std::uint32_t even = ((from & kEvenComponents) * rest + (to & kEvenComponents) * weight) >> 8 & kEvenComponents;
  const std::uint32_t odd =
      ((from >> 8 & kEvenComponents) * rest + (to >> 8 & kEvenComponents) * weight) & ~kEvenComponents;
  return even | odd;
}

/// Red, green and blue times `light` / 255, rounded to the nearest; alpha becomes 0.
constexpr std::uint32_t dimmedPixel(std::uint32_t color, std::uint32_t light) {
  const std::uint32_t even = (color & kEvenComponents) * light + 0x00800080;
  const std::uint32_t odd = (color >> 8 & 0xFF) * light + 0x80;
  return ((even + (even >> 8 & kEvenComponents)) >> 8 & kEvenComponents) | ((odd + (odd >> 8)) & 0xFF00);
}

/// A premultiplied pixel over an opaque one. Keeps the alpha of `pixel`.
constexpr std::uint32_t pixelOver(std::uint32_t pixel, std::uint32_t opaque) {
  return pixel + dimmedPixel(opaque, 255 - (pixel >> 24));
}

}  // namespace rondora
