#include "platform/linux/x11/overlay/dirty_rects.h"

#include <algorithm>

namespace rondora::x11 {
namespace {

Rect united(const Rect& a, const Rect& b) {
  const double left = std::min(a.left(), b.left());
  const double top = std::min(a.top(), b.top());
  return {{left, top}, {std::max(a.right(), b.right()) - left, std::max(a.bottom(), b.bottom()) - top}};
}

}  // namespace

void DirtyRects::add(const Rect& rect) {
  if (rect.isEmpty()) return;
  Rect joined = rect;
  for (std::size_t i = 0; i < count_;) {
    if (rects_[i].intersects(joined) || count_ == rects_.size()) {
      joined = united(joined, rects_[i]);
      rects_[i] = rects_[--count_];
      i = 0;
    } else {
      ++i;
    }
  }
  rects_[count_++] = joined;
}

}  // namespace rondora::x11
