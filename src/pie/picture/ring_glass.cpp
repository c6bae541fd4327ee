#include "pie/picture/ring_glass.h"

#include <algorithm>
#include <numbers>

#include "pie/picture/sector_contents.h"

namespace rondora {
namespace {

constexpr Color kWhite{1, 1, 1, 1};
constexpr Color kBlack{0, 0, 0, 1};

/// Darkest under the ring, transparent at the edge of the panel.
RadialGradientPaint shadowPaint(const RingLayout& layout) {
  const double width = layout.shadowWidth();
  const double reach = layout.outerRadius + width;
  const auto stopAt = [&](double radius, double opacity) {
    return GradientStop{std::clamp(radius / reach, 0.0, 1.0), kBlack.withAlpha(opacity)};
  };
  return {layout.center(),
          reach,
          {stopAt(0, 0.20), stopAt(layout.innerRadius, 0.24), stopAt(layout.outerRadius - width / 2, 0.34),
           stopAt(layout.outerRadius, 0.24), stopAt(layout.outerRadius + width * 0.25, 0.135),
           stopAt(layout.outerRadius + width * 0.5, 0.055), stopAt(layout.outerRadius + width * 0.75, 0.014),
           stopAt(reach, 0)}};
}

/// Light that falls on the glass from above.
LinearGradientPaint sheen(const RingLayout& layout) {
  const Point center = layout.center();
  return {{center.x - layout.outerRadius * 0.3, center.y - layout.outerRadius},
          {center.x + layout.outerRadius * 0.3, center.y + layout.outerRadius},
          {{0, kWhite.withAlpha(0.13)}, {0.5, kWhite.withAlpha(0.03)}, {1, kWhite.withAlpha(0.05)}}};
}

Path glassOutline(const RingLayout& layout, std::size_t itemCount) {
  Path path = Path::circle(layout.center(), layout.hubRadius());
  if (itemCount == 0) {
    PieSectorShape ring = sectorShape(layout, 0, 0, 0);
    ring.endAngle = ring.startAngle + 2 * std::numbers::pi;
    path.append(ring.path());
  }
  for (std::size_t i = 0; i < itemCount; ++i) path.append(sectorShape(layout, i, 0, 0).path());
  return path;
}

}  // namespace

Path between(const Path& outer, const Path& inner) {
  Path path;
  path.elements.reserve(outer.elements.size() + inner.elements.size());
  path.append(outer);
  path.append(inner.reversed());
  return path;
}

PieSectorShape sectorShape(const RingLayout& layout, std::size_t index, double growth, double inset) {
  PieSectorShape shape;
  shape.center = layout.center();
  shape.innerRadius = layout.innerRadius + inset;
  shape.outerRadius = layout.outerRadius + growth - inset;
  shape.startAngle = layout.sectorStart(index);
  shape.endAngle = layout.sectorEnd(index);
  shape.gap = SectorContents::gap(layout) + 2 * inset;
  shape.outerCornerRadius = std::max(14 * layout.scale - inset, 0.0);
  shape.innerCornerRadius = std::max(9 * layout.scale - inset, 0.0);
  return shape;
}

RadialGradientPaint acrossRing(const RingLayout& layout, double rim, Color atHub, Color atRim) {
  return {layout.center(), rim, {{0, atHub}, {layout.innerRadius / rim, atHub}, {1, atRim}}};
}

LinearGradientPaint edgeLight(const RingLayout& layout, double upper, double lower) {
  const Point center = layout.center();
  return {{center.x - layout.outerRadius * 0.4, center.y - layout.outerRadius},
          {center.x + layout.outerRadius * 0.4, center.y + layout.outerRadius},
          {{0, kWhite.withAlpha(upper)}, {0.55, kWhite.withAlpha(lower)}, {1, kWhite.withAlpha((upper + lower) / 2)}}};
}

PictureLayer ringGlassLayer(const RingLayout& layout, const GlassStyle& glass, std::size_t itemCount) {
  const Path outline = glassOutline(layout, itemCount);
  DisplayList list;
  list.push_back(
      FillCommand{Path::circle(layout.center(), layout.outerRadius + layout.shadowWidth()), shadowPaint(layout)});
  list.push_back(FillCommand{outline, glass.backdrop});
  list.push_back(FillCommand{outline, sheen(layout)});
  if (itemCount == 0) {
    list.push_back(StrokeCommand{outline, edgeLight(layout, glass.upperEdge, glass.lowerEdge), layout.hairline()});
  } else {
    const Path hub = Path::circle(layout.center(), layout.hubRadius());
    const Path inside = Path::circle(layout.center(), layout.hubRadius() - layout.hairline());
    list.push_back(FillCommand{between(hub, inside), edgeLight(layout, glass.upperEdge, glass.lowerEdge)});
  }
  return {squareAround(layout.center(), layout.halfSide()), {std::move(list)}};
}

}  // namespace rondora
