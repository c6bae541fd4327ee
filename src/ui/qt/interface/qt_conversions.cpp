#include "ui/qt/interface/qt_conversions.h"

#include <QGradient>
#include <algorithm>
#include <cmath>
#include <variant>

namespace rondora {

namespace {

/// Far outside any screen; keeps hostile numbers within the toolkit's integers.
constexpr double kMaxPixel = 30000;

double fraction(double value) { return std::isnan(value) ? 0 : std::clamp(value, 0.0, 1.0); }

float component(double value) { return static_cast<float>(fraction(value)); }

double pixel(double value, double scale) {
  const double scaled = value * scale;
  return std::isnan(scaled) ? 0 : std::clamp(scaled, -kMaxPixel, kMaxPixel);
}

void setStops(QGradient& gradient, const std::vector<GradientStop>& stops) {
  for (const GradientStop& stop : stops) {
    gradient.setColorAt(fraction(stop.position), toQColor(stop.color));
  }
}

struct BrushMaker {
  double scale;

  QBrush operator()(const SolidPaint& paint) const { return {toQColor(paint.color)}; }
  QBrush operator()(const LinearGradientPaint& paint) const {
    QLinearGradient gradient(toQPoint(paint.start, scale), toQPoint(paint.end, scale));
    setStops(gradient, paint.stops);
    return {gradient};
  }
  QBrush operator()(const RadialGradientPaint& paint) const {
    QRadialGradient gradient(toQPoint(paint.center, scale), std::max(pixel(paint.radius, scale), 0.0));
    setStops(gradient, paint.stops);
    return {gradient};
  }
  QBrush operator()(const BackdropPaint& paint) const { return {toQColor(layered(paint.imitation, paint.veil))}; }
};

}  // namespace

QColor toQColor(Color color) {
  return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue), component(color.alpha));
}

Color toColor(const QColor& color) { return {color.redF(), color.greenF(), color.blueF(), color.alphaF()}; }

QPointF toQPoint(Point point, double scale) { return {pixel(point.x, scale), pixel(point.y, scale)}; }

QRectF toQRect(const Rect& rect, double scale) {
  return {toQPoint(rect.origin, scale), toQPoint({rect.right(), rect.bottom()}, scale)};
}

QRect toPixelRect(const Rect& rect, double scale) {
  if (rect.isEmpty()) return {};
  return toQRect(rect, scale).toAlignedRect();
}

QPainterPath toQPainterPath(const Path& path, double scale) {
  QPainterPath result;
  result.setFillRule(Qt::WindingFill);
  for (const PathElement& element : path.elements) {
    const QPointF end = toQPoint(element.end, scale);
    switch (element.verb) {
      case PathVerb::move:
        result.moveTo(end);
        break;
      case PathVerb::line:
        result.lineTo(end);
        break;
      case PathVerb::cubic:
        result.cubicTo(toQPoint(element.control1, scale), toQPoint(element.control2, scale), end);
        break;
      case PathVerb::close:
        result.closeSubpath();
        break;
    }
  }
  return result;
}

QBrush toQBrush(const Paint& paint, double scale) { return std::visit(BrushMaker{scale}, paint); }

}  // namespace rondora
