#include "pie/geometry/sector_geometry.h"

#include <algorithm>
#include <cmath>

namespace rondora {
namespace {

constexpr double kQuarterTurn = std::numbers::pi / 2;

double reducedDegrees(double degrees) {
  if (!std::isfinite(degrees)) return 0;
  double reduced = std::fmod(degrees, 360);
  if (reduced <= -180) reduced += 360;
  if (reduced > 180) reduced -= 360;
  return reduced + 0.0;  // turns -0 into 0
}

/// Avoids `std::fmod`, which is slow, for values inside the period.
double reducedTo(double value, double period) { return std::abs(value) < period ? value : std::fmod(value, period); }

}  // namespace

double reducedToFullTurn(double angle) {
  if (!std::isfinite(angle)) return 0;
  double reduced = reducedTo(angle, kFullTurn);
  if (reduced < 0) reduced += kFullTurn;
  return std::min(reduced, std::nextafter(kFullTurn, 0));
}

double reducedToHalfTurns(double angle) {
  const double reduced = reducedToFullTurn(angle);
  return reduced > std::numbers::pi ? reduced - kFullTurn : reduced;
}

double radiansFromRotation(double rotationDegrees) {
  return std::isfinite(rotationDegrees) ? reducedTo(rotationDegrees, 360) * std::numbers::pi / 180 : 0;
}

double sectorWidth(std::size_t sectorCount) {
  return kFullTurn / static_cast<double>(std::max<std::size_t>(sectorCount, 1));
}

double startAngle(std::size_t index, std::size_t sectorCount, double rotationDegrees) {
  return -kQuarterTurn + sectorWidth(sectorCount) * static_cast<double>(index) + radiansFromRotation(rotationDegrees);
}

double endAngle(std::size_t index, std::size_t sectorCount, double rotationDegrees) {
  return startAngle(index + 1, sectorCount, rotationDegrees);
}

double angleFromFirstEdge(Point offset, double rotationDegrees) {
  return reducedToFullTurn(std::atan2(offset.y, offset.x) + kQuarterTurn - radiansFromRotation(rotationDegrees));
}

std::size_t sectorIndexAt(double angleFromFirstEdge, std::size_t sectorCount) {
  if (sectorCount < 2) return 0;
  const double sectors = std::max(0.0, angleFromFirstEdge / sectorWidth(sectorCount));
  return std::min(static_cast<std::size_t>(sectors), sectorCount - 1);
}

double snappedAestheticRotationDegrees(double raw, std::int64_t sectorCount) {
  double rotation = reducedDegrees(raw);
  if (sectorCount >= 1) {
    const double step = 180 / static_cast<double>(sectorCount);
    rotation = step * std::round(rotation / step);
  }
  return reducedDegrees(rotation);
}

}  // namespace rondora
