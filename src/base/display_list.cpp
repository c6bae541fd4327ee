#include "base/display_list.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace rondora {

void Path::arc(Point center, double radius, double startAngle, double endAngle) {
  const double sweep = endAngle - startAngle;
  const int pieces = std::clamp(static_cast<int>(std::ceil(std::abs(sweep) / (std::numbers::pi / 4))), 1, 64);
  const double step = sweep / pieces;
  // Length of the control arms of a cubic that follows a circular arc.
  const double arm = 4.0 / 3.0 * std::tan(step / 4) * radius;
  Point from{std::cos(startAngle), std::sin(startAngle)};  // of a circle of radius 1
  for (int i = 1; i <= pieces; ++i) {
    const Point to{std::cos(startAngle + i * step), std::sin(startAngle + i * step)};
    cubicTo(center + from * radius + Point{-from.y, from.x} * arm, center + to * radius + Point{to.y, -to.x} * arm,
            center + to * radius);
    from = to;
  }
}

Path Path::reversed() const {
  Path path;
  path.elements.reserve(elements.size());
  bool isInSubpath = false;
  for (std::size_t i = elements.size(); i-- > 0;) {
    const PathElement& element = elements[i];
    if (element.verb == PathVerb::close) continue;
    if (!std::exchange(isInSubpath, true)) path.moveTo(element.end);
    if (element.verb == PathVerb::move) {
      path.close();
      isInSubpath = false;
      continue;
    }
    const Point before = elements[i - 1].end;
    element.verb == PathVerb::line ? path.lineTo(before) : path.cubicTo(element.control2, element.control1, before);
  }
  return path;
}

Path Path::circle(Point center, double radius) {
  Path path;
  path.moveTo({center.x + radius, center.y});
  path.arc(center, radius, 0, 2 * std::numbers::pi);
  path.close();
  return path;
}

Path Path::roundedRect(const Rect& rect, double cornerRadius) {
  const double r = std::max(0.0, std::min({cornerRadius, rect.size.width / 2, rect.size.height / 2}));
  constexpr double kQuarter = std::numbers::pi / 2;
  Path path;
  path.moveTo({rect.left() + r, rect.top()});
  path.lineTo({rect.right() - r, rect.top()});
  path.arc({rect.right() - r, rect.top() + r}, r, -kQuarter, 0);
  path.lineTo({rect.right(), rect.bottom() - r});
  path.arc({rect.right() - r, rect.bottom() - r}, r, 0, kQuarter);
  path.lineTo({rect.left() + r, rect.bottom()});
  path.arc({rect.left() + r, rect.bottom() - r}, r, kQuarter, 2 * kQuarter);
  path.lineTo({rect.left(), rect.top() + r});
  path.arc({rect.left() + r, rect.top() + r}, r, 2 * kQuarter, 3 * kQuarter);
  path.close();
  return path;
}

namespace {

struct Box {
  double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;

  void add(Point p, double margin) {
    left = std::min(left, p.x - margin);
    top = std::min(top, p.y - margin);
    right = std::max(right, p.x + margin);
    bottom = std::max(bottom, p.y + margin);
  }
  void add(const Path& path, double margin) {
    for (const PathElement& element : path.elements) {
      if (element.verb == PathVerb::close) continue;
      add(element.end, margin);
      if (element.verb != PathVerb::cubic) continue;
      add(element.control1, margin);
      add(element.control2, margin);
    }
  }
  void operator()(const FillCommand& fill) { add(fill.clip.elements.empty() ? fill.path : fill.clip, 0); }
  void operator()(const StrokeCommand& stroke) { add(stroke.path, stroke.width / 2); }
  void operator()(const IconCommand& icon) { add(icon.rect); }
  void operator()(const TextCommand& text) { add(text.rect, text.halo ? text.halo->width : 0); }
  void add(const Rect& rect, double margin = 0) {
    add(rect.origin, margin);
    add(Point{rect.right(), rect.bottom()}, margin);
  }
};

}  // namespace

Rect boundsOf(const std::vector<DisplayList>& lists) {
  Box box;
  for (const DisplayList& list : lists) {
    for (const DisplayCommand& command : list) std::visit([&box](const auto& drawn) { box(drawn); }, command);
  }
  if (box.left > box.right) return {};
  const Point origin{std::floor(box.left), std::floor(box.top)};
  return {origin, {std::ceil(box.right) - origin.x, std::ceil(box.bottom) - origin.y}};
}

}  // namespace rondora
