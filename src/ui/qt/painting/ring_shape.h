#pragma once

#include <QPainterPath>
#include <cstddef>

namespace rondora {

enum class SectorLook { plain, chosen };

/// One sector of the program's mark, a ring of radius 1 around the origin. Sector 0 is the first to the right of the
/// top; the others follow clockwise.
QPainterPath ringSectorShape(std::size_t index, std::size_t count, SectorLook look);

}  // namespace rondora
