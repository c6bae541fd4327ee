#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>
#include <QTextLayout>

#include "base/display_list.h"

namespace rondora {

/// A text run laid out at one scale: wrapped, elided and aligned inside its rectangle. Directions may mix; the first
/// strong character decides which edge is the leading one.
class PreparedText {
 public:
  PreparedText(const TextCommand& command, double pixelsPerPoint);

  void paint(QPainter& painter) const;

 private:
  void layOut(const QString& text, const QRectF& rect, int maximumLines);
  /// Returns the height.
  double breakLines(double width, int maximumLines);
  bool showsWholeText() const;
  double elide(double width, int maximumLines);

  QTextLayout layout_;
  QColor color_;
  QPointF origin_;
};

}  // namespace rondora
