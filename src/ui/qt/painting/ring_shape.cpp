#include "ui/qt/painting/ring_shape.h"

namespace rondora {

namespace {

constexpr double kGapDegrees = 14;
constexpr double kTopDegrees = 90;

struct Radii {
  double inner;
  double outer;
};

constexpr Radii radii(SectorLook look) { return look == SectorLook::chosen ? Radii{0.36, 0.94} : Radii{0.48, 0.84}; }

QRectF squareOfRadius(double radius) { return {-radius, -radius, 2 * radius, 2 * radius}; }

}  // namespace

QPainterPath ringSectorShape(std::size_t index, std::size_t count, SectorLook look) {
  const double sector = 360.0 / static_cast<double>(count);
  const double start = kTopDegrees - static_cast<double>(index) * sector - kGapDegrees / 2;
  const double sweep = -(sector - kGapDegrees);
  const auto [inner, outer] = radii(look);
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  path.arcMoveTo(squareOfRadius(outer), start);
  path.arcTo(squareOfRadius(outer), start, sweep);
  path.arcTo(squareOfRadius(inner), start + sweep, -sweep);
  path.closeSubpath();
  return path;
}

}  // namespace rondora
