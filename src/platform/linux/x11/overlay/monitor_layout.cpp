#include "platform/linux/x11/overlay/monitor_layout.h"

#include <algorithm>
#include <limits>

namespace rondora::x11 {
namespace {

constexpr int kFarAway = std::numeric_limits<std::int16_t>::max();

int bounded(std::uint32_t value) { return static_cast<int>(std::min<std::uint32_t>(value, kFarAway)); }

bool overlaps(const Strut::Side& side, int from, int to) {
  return side.thickness > 0 && side.start < to && side.end >= from;
}

bool contains(const PixelRect& outer, const PixelRect& inner) {
  return inner.x >= outer.x && inner.y >= outer.y && inner.right() <= outer.right() && inner.bottom() <= outer.bottom();
}

// A strut is measured from the edge of the root window, so it counts only on a monitor that its edge crosses.
PixelRect withoutStruts(const PixelRect& monitor, const PixelRect& root, std::span<const Strut> struts) {
  int left = monitor.x;
  int right = monitor.right();
  int top = monitor.y;
  int bottom = monitor.bottom();
  const auto inRows = [&](const Strut::Side& side) { return overlaps(side, monitor.y, monitor.bottom()); };
  const auto inColumns = [&](const Strut::Side& side) { return overlaps(side, monitor.x, monitor.right()); };
  const auto inside = [](int edge, int from, int to) { return edge > from && edge < to; };
  for (const Strut& strut : struts) {
    const int leftEdge = root.x + strut.left.thickness;
    const int rightEdge = root.right() - strut.right.thickness;
    const int topEdge = root.y + strut.top.thickness;
    const int bottomEdge = root.bottom() - strut.bottom.thickness;
    if (inRows(strut.left) && inside(leftEdge, monitor.x, monitor.right())) left = std::max(left, leftEdge);
    if (inRows(strut.right) && inside(rightEdge, monitor.x, monitor.right())) right = std::min(right, rightEdge);
    if (inColumns(strut.top) && inside(topEdge, monitor.y, monitor.bottom())) top = std::max(top, topEdge);
    if (inColumns(strut.bottom) && inside(bottomEdge, monitor.y, monitor.bottom()))
      bottom = std::min(bottom, bottomEdge);
  }
  return {left, top, right - left, bottom - top};
}

PixelRect freePart(const PixelRect& monitor, const PixelRect& root, const WorkAreas& areas) {
  for (const PixelRect& area : areas.ofMonitors) {
    if (!area.isEmpty() && contains(monitor, area)) return area;
  }
  const PixelRect part = withoutStruts(monitor, root, areas.struts);
  const bool isAboutThisMonitor = areas.struts.empty() || monitor == root;
  return areas.ofDesktop && isAboutThisMonitor ? intersection(part, *areas.ofDesktop) : part;
}

}  // namespace

Strut Strut::fromProperty(std::span<const std::uint32_t> values) {
  if (values.size() < 4) return {};
  const auto side = [&](std::size_t index) {
    Side result{bounded(values[index]), 0, kFarAway};
    if (values.size() < 12) return result;
    result.start = bounded(values[4 + 2 * index]);
    result.end = bounded(values[5 + 2 * index]);
    return result;
  };
  return {side(0), side(1), side(2), side(3)};
}

std::vector<PixelRect> rectsFromProperty(std::span<const std::uint32_t> values) {
  std::vector<PixelRect> rects;
  for (; values.size() >= 4; values = values.subspan(4)) {
    const auto position = [&](std::size_t index) {
      return std::clamp(static_cast<std::int32_t>(values[index]), -kFarAway, kFarAway);
    };
    rects.push_back({position(0), position(1), bounded(values[2]), bounded(values[3])});
  }
  return rects;
}

PixelRect visibleFrame(const PixelRect& monitor, const PixelRect& root, const WorkAreas& areas) {
  const PixelRect part = freePart(monitor, root, areas);
  return part.isEmpty() ? monitor : part;
}

}  // namespace rondora::x11
