#pragma once

#include <QAbstractButton>
#include <QColor>

namespace rondora {

/// A colour to choose, drawn as a disc; a ring marks the chosen one. Swatches of one parent exclude each other.
class ColorSwatch : public QAbstractButton {
 public:
  explicit ColorSwatch(const QColor& color);

  /// A disc of that colour, with an outline that shows on every background.
  static void paintDisc(QPainter& painter, const QRectF& rect, const QColor& color, const QPalette& palette);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor color_;
};

}  // namespace rondora
