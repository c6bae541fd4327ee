#include "pie/geometry/pie_sector_shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace rondora {
namespace {

constexpr double kPi = std::numbers::pi;

Point onCircle(Point center, double radius, double angle) {
  return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

/// The angle between a wedge's edge and a point at `radius` whose distance from that edge is `distance`.
double angleFromEdge(double distance, double radius) { return std::asin(std::clamp(distance / radius, 0.0, 1.0)); }

double sineOfHalf(double startAngle, double endAngle) {
  return std::sin(std::min(std::abs(endAngle - startAngle) / 2, kPi / 2));
}

/// The largest corner up to `wanted` that fits at the rim.
double fittingOuterCorner(double wanted, double radius, double halfGap, double sine, double ringWidth) {
  return std::clamp(std::min(wanted, (radius * sine - halfGap) / (1 + sine) * 0.98), 0.0, ringWidth * 0.45);
}

double fittingInnerCorner(double wanted, double radius, double halfGap, double sine, double ringWidth) {
  const double room = sine < 0.999 ? (radius * sine - halfGap) / (1 - sine) * 0.9 : wanted;
  return std::clamp(std::min(wanted, room), 0.0, ringWidth * 0.45);
}

}  // namespace

double PieSectorShape::halfGap() const {
  if (endAngle - startAngle >= 2 * kPi - 1e-9) return 0;
  return std::min(gap / 2, 0.3 * innerRadius * sineOfHalf(startAngle, endAngle));
}

Path PieSectorShape::ring() const {
  Path path = Path::circle(center, outerRadius);
  path.moveTo(onCircle(center, innerRadius, 0));
  path.arc(center, innerRadius, 0, -2 * kPi);
  path.close();
  return path;
}

Path PieSectorShape::plainWedge() const {
  Path path;
  path.moveTo(onCircle(center, outerRadius, startAngle));
  path.arc(center, outerRadius, startAngle, endAngle);
  path.lineTo(onCircle(center, innerRadius, endAngle));
  path.arc(center, innerRadius, endAngle, startAngle);
  path.close();
  return path;
}

Path PieSectorShape::path() const {
  if (endAngle - startAngle >= 2 * kPi - 1e-9) return ring();
  if (gap <= 0 && outerCornerRadius <= 0 && innerCornerRadius <= 0) return plainWedge();
  const double sine = sineOfHalf(startAngle, endAngle);
  const double back = halfGap();
  const double ringWidth = outerRadius - innerRadius;
  const double outer = fittingOuterCorner(outerCornerRadius, outerRadius, back, sine, ringWidth);
  const double inner = fittingInnerCorner(innerCornerRadius, innerRadius, back, sine, ringWidth);
  // Every corner is a circle that touches an edge, `back` away from the wedge's own, and one of the two arcs.
  const double outerInset = angleFromEdge(back + outer, outerRadius - outer);
  const double innerInset = angleFromEdge(back + inner, innerRadius + inner);
  const double outerFrom = startAngle + outerInset;
  const double outerTo = endAngle - outerInset;
  const double innerFrom = startAngle + innerInset;
  const double innerTo = endAngle - innerInset;

  Path path;
  path.elements.reserve(40);
  path.moveTo(onCircle(center, outerRadius, outerFrom));
  path.arc(center, outerRadius, outerFrom, outerTo);
  path.arc(onCircle(center, outerRadius - outer, outerTo), outer, outerTo, endAngle + kPi / 2);
  const Point innerEndCorner = onCircle(center, innerRadius + inner, innerTo);
  path.lineTo(onCircle(innerEndCorner, inner, endAngle + kPi / 2));
  path.arc(innerEndCorner, inner, endAngle + kPi / 2, innerTo + kPi);
  path.arc(center, innerRadius, innerTo, innerFrom);
  path.arc(onCircle(center, innerRadius + inner, innerFrom), inner, innerFrom + kPi, startAngle + 3 * kPi / 2);
  const Point outerStartCorner = onCircle(center, outerRadius - outer, outerFrom);
  path.lineTo(onCircle(outerStartCorner, outer, startAngle - kPi / 2));
  path.arc(outerStartCorner, outer, startAngle - kPi / 2, outerFrom);
  path.close();
  return path;
}

}  // namespace rondora
