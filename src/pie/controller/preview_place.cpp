#include "pie/controller/preview_place.h"

#include <algorithm>
#include <optional>

namespace rondora {
namespace {

/// Clears the highlighted sector, which grows, and the ring's shadow. Points.
constexpr double kDistanceFromRing = 20;

/// Fits a stretch of `length` between `first` and `last`.
double fitted(double start, double length, double first, double last) {
  return std::max(first, std::min(start, last - length));
}

/// The start beside a ring from `ringStart` to `ringEnd`; nothing if neither side has room.
std::optional<double> beside(double ringStart, double ringEnd, double length, double first, double last,
                             bool prefersEnd) {
  const double after = ringEnd + kDistanceFromRing;
  const double before = ringStart - kDistanceFromRing - length;
  const bool fitsAfter = after + length <= last && after >= first;
  const bool fitsBefore = before >= first && before + length <= last;
  if (fitsAfter && (prefersEnd || !fitsBefore)) return after;
  if (fitsBefore) return before;
  return std::nullopt;
}

}  // namespace

Point previewCorner(const PreviewSurroundings& around, Size size) {
  const Rect& screen = around.screen;
  const Point middle = around.ring.center();
  const double x = fitted(around.sector.x - size.width / 2, size.width, screen.left(), screen.right());
  const double y = fitted(around.sector.y - size.height / 2, size.height, screen.top(), screen.bottom());
  if (const auto besideX = beside(around.ring.left(), around.ring.right(), size.width, screen.left(), screen.right(),
                                  around.sector.x >= middle.x)) {
    return {*besideX, y};
  }
  const auto besideY = beside(around.ring.top(), around.ring.bottom(), size.height, screen.top(), screen.bottom(),
                              around.sector.y >= middle.y);
  return {x, besideY.value_or(y)};
}

}  // namespace rondora
