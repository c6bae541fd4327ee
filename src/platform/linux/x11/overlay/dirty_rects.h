#pragma once

#include <array>
#include <cstddef>

#include "base/geometry.h"

namespace rondora::x11 {

/// The areas to repaint: up to eight rectangles, merged where they touch.
class DirtyRects {
 public:
  void add(const Rect& rect);
  void clear() { count_ = 0; }
  const Rect* begin() const { return rects_.data(); }
  const Rect* end() const { return rects_.data() + count_; }

 private:
  std::array<Rect, 8> rects_;
  std::size_t count_ = 0;
};

}  // namespace rondora::x11
