#include "commands/window_ax.h"

#include <algorithm>
#include <cmath>

#include "platform/ax_names.h"

namespace rondora {
namespace {

using Elements = std::vector<AXElementRef>;

std::optional<Rect> frameOf(const AXElement& window) {
  const auto origin = attributeOf<Point>(window, ax::kPosition);
  const auto size = attributeOf<Size>(window, ax::kSize);
  if (!origin || !size) return std::nullopt;
  const bool isFinite = std::isfinite(origin->x + origin->y) && std::isfinite(size->width + size->height);
  return isFinite ? std::optional(Rect{*origin, *size}) : std::nullopt;
}

bool isFullScreen(const AXElement& window) { return attributeOf<bool>(window, ax::kFullScreen) == true; }

/// How far the value lies outside the span; 0 inside.
double gap(double value, double begin, double end) { return std::max({begin - value, value - end, 0.0}); }

double distance(Point point, const Rect& area) {
  return std::hypot(gap(point.x, area.left(), area.right()), gap(point.y, area.top(), area.bottom()));
}

/// Sized before and after the move: an application may limit the size by the place at which the window stands.
bool moveAndResize(AXElement& window, const Rect& frame) {
  return window.setAttribute(ax::kSize, frame.size) && window.setAttribute(ax::kPosition, frame.origin) &&
         window.setAttribute(ax::kSize, frame.size);
}

bool moveToCenter(AXElement& window, Size current, const Rect& area) {
  const Size size{std::min(current.width, area.size.width), std::min(current.height, area.size.height)};
  if (size != current && !window.setAttribute(ax::kSize, size)) return false;
  const Point center = area.center();
  return window.setAttribute(ax::kPosition,
                             Point{std::round(center.x - size.width * 0.5), std::round(center.y - size.height * 0.5)});
}

}  // namespace

AXElementRef WindowAX::targetWindow(std::int32_t processIdentifier) {
  const AXElementRef application = accessibility_.application(processIdentifier);
  if (!application) return nullptr;
  application->setMessagingTimeout(kMessagingTimeout);
  for (const std::string_view name : {ax::kFocusedWindow, ax::kMainWindow}) {
    auto window = attributeOf<AXElementRef>(*application, name).value_or(nullptr);
    if (window && isStandardWindow(*window)) return window;
  }
  const auto windows = attributeOf<Elements>(*application, ax::kWindows).value_or(Elements());
  const auto found = std::find_if(windows.begin(), windows.end(),
                                  [](const AXElementRef& window) { return window && isStandardWindow(*window); });
  return found == windows.end() ? nullptr : *found;
}

bool WindowAX::isStandardWindow(AXElement& window) {
  window.setMessagingTimeout(kMessagingTimeout);
  return attributeOf<std::string>(window, ax::kSubrole) == ax::kStandardWindow &&
         attributeOf<bool>(window, ax::kMinimized) != true;
}

bool WindowAX::canMoveAndResize(const AXElement& window) {
  return window.isSettable(ax::kPosition) && window.isSettable(ax::kSize);
}

FullScreenState WindowAX::fullScreenState(const AXElement& window) {
  if (!window.isSettable(ax::kFullScreen)) return FullScreenState::unsupported;
  return isFullScreen(window) ? FullScreenState::on : FullScreenState::off;
}

bool WindowAX::toggleFullScreen(AXElement& window) {
  return window.setAttribute(ax::kFullScreen, !isFullScreen(window));
}

std::optional<Rect> WindowAX::screenFrame(Point point, const std::vector<Rect>& workAreas) {
  const auto containing =
      std::find_if(workAreas.begin(), workAreas.end(), [point](const Rect& area) { return area.contains(point); });
  if (containing != workAreas.end()) return *containing;
  const auto nearest = std::min_element(workAreas.begin(), workAreas.end(), [point](const Rect& a, const Rect& b) {
    return distance(point, a) < distance(point, b);
  });
  return nearest == workAreas.end() ? std::nullopt : std::optional(*nearest);
}

Rect WindowAX::tileFrame(WindowTile tile, const Rect& workArea) {
  const auto [origin, size] = workArea;
  const Size half{std::floor(size.width * 0.5), std::floor(size.height * 0.5)};
  switch (tile) {
    case WindowTile::left:
      return {origin, {half.width, size.height}};
    case WindowTile::right:
      return {{origin.x + half.width, origin.y}, {size.width - half.width, size.height}};
    case WindowTile::top:
      return {origin, {size.width, half.height}};
    case WindowTile::bottom:
      return {{origin.x, origin.y + half.height}, {size.width, size.height - half.height}};
    case WindowTile::fill:
    case WindowTile::center:
      break;
  }
  return workArea;
}

bool WindowAX::tile(AXElement& window, WindowTile tile, const std::vector<Rect>& workAreas) {
  const auto frame = frameOf(window);
  if (!frame) return false;
  const auto area = screenFrame(frame->center(), workAreas);
  if (!area) return false;
  if (tile == WindowTile::center) return moveToCenter(window, frame->size, *area);
  return moveAndResize(window, tileFrame(tile, *area));
}

}  // namespace rondora
