#pragma once

#include "base/geometry.h"

namespace rondora::macos {

// The windowing toolkit measures upward from the bottom left corner of the first screen, the ports downward from its
// top left corner. The same conversion leads back.

constexpr Point flipped(Point point, double firstScreenHeight) { return {point.x, firstScreenHeight - point.y}; }

constexpr Rect flipped(const Rect& rect, double firstScreenHeight) {
  return {{rect.left(), firstScreenHeight - rect.bottom()}, rect.size};
}

}  // namespace rondora::macos
