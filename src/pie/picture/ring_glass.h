#pragma once

#include <cstddef>

#include "base/display_list.h"
#include "pie/geometry/pie_sector_shape.h"
#include "pie/geometry/ring_layout.h"
#include "pie/picture/glass_style.h"

namespace rondora {

/// The static layer beneath sectors and hub: the shadow and the glass. Without items the ring is one closed
/// piece.
PictureLayer ringGlassLayer(const RingLayout& layout, const GlassStyle& glass, std::size_t itemCount);

/// The outline of a sector, `growth` points larger at its rim and `inset` smaller all around.
PieSectorShape sectorShape(const RingLayout& layout, std::size_t index, double growth, double inset);

/// The band between an outline and one inside it; cheaper to paint than a stroke of the outline.
Path between(const Path& outer, const Path& inner);

/// From one colour at the hub's edge to another at the rim.
RadialGradientPaint acrossRing(const RingLayout& layout, double rim, Color atHub, Color atRim);
/// Light from above along an edge of glass, given as the opacity of white.
LinearGradientPaint edgeLight(const RingLayout& layout, double upper, double lower);

}  // namespace rondora
