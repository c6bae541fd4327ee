#pragma once

#include <cstddef>

#include "base/geometry.h"
#include "model/pie_menu.h"

namespace rondora {

/// Sizes of a ring as shown, shared by drawing and hit testing. Points; the panel is a square with the ring's centre in
/// its middle.
struct RingLayout {
  double outerRadius = 0;
  double innerRadius = 0;
  /// Factor from the menu's own lengths to those on screen.
  double scale = 1;
  double rotationDegrees = 0;
  std::size_t sectorCount = 1;

  /// Shrinks a ring that is larger than `maxRadius`.
  static RingLayout make(const PieMenu& menu, double rotationDegrees, std::size_t itemCount, double maxRadius);

  /// How far a highlighted sector reaches beyond the ring.
  double highlightGrowth() const { return 6 * scale; }
  double shadowWidth() const { return 26 * scale; }
  /// Width of the finest line; it grows more slowly than the ring.
  double hairline() const;
  double ringWidth() const { return outerRadius - innerRadius; }
  double hubRadius() const { return innerRadius - 5 * scale; }
  /// Half the side of the square that holds everything drawn; a whole number.
  double halfSide() const;
  Point center() const { return {halfSide(), halfSide()}; }

  double sectorStart(std::size_t index) const;
  double sectorEnd(std::size_t index) const;
  double sectorMiddle(std::size_t index) const;
};

}  // namespace rondora
