#pragma once

#include <cstddef>
#include <cstdint>
#include <numbers>

#include "base/geometry.h"

// Where the sectors of a ring lie. Angles are radians, measured clockwise on screen from the positive x axis (y points
// down); rotations are degrees. A number that is not finite counts as 0.

namespace rondora {

inline constexpr double kFullTurn = 2 * std::numbers::pi;

/// The same angle in [0, 2π).
double reducedToFullTurn(double angle);
/// The same angle in [−π, π], −π becoming π.
double reducedToHalfTurns(double angle);
double radiansFromRotation(double rotationDegrees);

/// An empty menu is laid out like one with a single sector.
double sectorWidth(std::size_t sectorCount);
double startAngle(std::size_t index, std::size_t sectorCount, double rotationDegrees);
double endAngle(std::size_t index, std::size_t sectorCount, double rotationDegrees);

/// The angle of `offset` from the leading edge of sector 0, in [0, 2π).
double angleFromFirstEdge(Point offset, double rotationDegrees);
/// The sector that holds an angle counted from the leading edge of sector 0, in [0, 2π).
std::size_t sectorIndexAt(double angleFromFirstEdge, std::size_t sectorCount);

/// `raw` moved to the nearest multiple of half a sector, in (−180, 180]. With fewer than 1 sector it is only
/// normalised.
double snappedAestheticRotationDegrees(double raw, std::int64_t sectorCount);

}  // namespace rondora
