#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QTextLayout>
#include <optional>

#include "base/display_list.h"

namespace rondora {

/// A text run laid out at one scale: wrapped, elided and aligned inside its rectangle and its disc. Takes as few lines
/// as possible, then the smaller size, then breaks words, then elides. Directions may mix; the first strong character
/// decides which edge is the leading one.
class PreparedText {
 public:
  PreparedText(const TextCommand& command, double pixelsPerPoint);

  void paint(QPainter& painter) const;
  /// What each line shows.
  QStringList lines() const;

 private:
  struct Area {
    QRectF rect;
    std::optional<QPointF> center;  // of the disc
    double radius = 0;
    int maximumLines = 1;
  };
  struct Slot {
    double left = 0;
    double width = 0;
  };

  void layOut(const QString& text, const TextCommand& command, double pixelsPerPoint);
  void useFont(const QString& text, const TextCommand& command, double pixels);
  Slot slotAt(double top, double height) const;
  bool fits(const QString& text, QTextOption::WrapMode wrap);
  bool fillLines(int count);
  void elide(const QString& text, TextElision elision);

  QTextLayout layout_;
  QTextOption option_;
  Area area_;
  int lines_ = 1;
  double lineHeight_ = 0;
  double height_ = 0;  // of all lines
  QColor color_;
  QPointF origin_;
};

}  // namespace rondora
