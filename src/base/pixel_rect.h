#pragma once

#include <algorithm>

namespace rondora {

/// A rectangle of whole pixels, y growing downward.
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const PixelRect&, const PixelRect&) = default;

  constexpr int right() const { return x + width; }
  constexpr int bottom() const { return y + height; }
  constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
};

/// The common part; empty, with negative sides, when the rectangles are apart.
constexpr PixelRect intersection(const PixelRect& a, const PixelRect& b) {
  const int left = std::max(a.x, b.x);
  const int top = std::max(a.y, b.y);
  return {left, top, std::min(a.right(), b.right()) - left, std::min(a.bottom(), b.bottom()) - top};
}

}  // namespace rondora
