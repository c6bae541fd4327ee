#pragma once

#include "base/display_list.h"
#include "base/geometry.h"

namespace rondora {

/// The outline of a sector: an annular wedge with rounded corners, inset from its neighbours by half a gap of constant
/// width. Lengths are points, angles as in pie/geometry/sector_geometry.h.
struct PieSectorShape {
  Point center;
  double innerRadius = 0;
  double outerRadius = 0;
  double startAngle = 0;
  double endAngle = 0;
  double gap = 0;
  double outerCornerRadius = 0;
  double innerCornerRadius = 0;

  /// Half of `gap`, less where the wedge is too narrow for it.
  double halfGap() const;
  /// A wedge of a whole turn is a closed ring without gap and corners; one without either has four edges only.
  Path path() const;

 private:
  Path ring() const;
  Path plainWedge() const;
};

}  // namespace rondora
