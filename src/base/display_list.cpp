#include "base/display_list.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace rondora {

void Path::arc(Point center, double radius, double startAngle, double endAngle) {
  const double sweep = endAngle - startAngle;
  const int pieces = std::clamp(static_cast<int>(std::ceil(std::abs(sweep) / (std::numbers::pi / 4))), 1, 64);
  const double step = sweep / pieces;
  // Length of the control arms of a cubic that follows a circular arc.
  const double arm = 4.0 / 3.0 * std::tan(step / 4) * radius;
  double angle = startAngle;
  for (int i = 0; i < pieces; ++i, angle += step) {
    const Point from{center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
    const Point to{center.x + radius * std::cos(angle + step), center.y + radius * std::sin(angle + step)};
    cubicTo({from.x - arm * std::sin(angle), from.y + arm * std::cos(angle)},
            {to.x + arm * std::sin(angle + step), to.y - arm * std::cos(angle + step)}, to);
  }
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

}  // namespace rondora
