#pragma once

#include <QBrush>
#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include "base/display_list.h"

// Conversions from our own value types to the toolkit's. `scale` is in pixels per point.

namespace rondora {

QColor toQColor(Color color);
Color toColor(const QColor& color);
QPointF toQPoint(Point point, double scale);
QRectF toQRect(const Rect& rect, double scale);
/// The smallest rectangle of whole pixels around `rect`.
QRect toPixelRect(const Rect& rect, double scale);
QPainterPath toQPainterPath(const Path& path, double scale);
QBrush toQBrush(const Paint& paint, double scale);

}  // namespace rondora
