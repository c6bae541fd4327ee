#include "ui/qt/settings/color_swatch.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace rondora {
namespace {

constexpr double kSideOfLine = 1.5;  // in heights of a line of text
constexpr double kRing = 2;
/// From the edge to the disc, for the ring and the focus.
constexpr double kInset = 5;
constexpr float kOutlineOpacity = 0.35F;

}  // namespace

ColorSwatch::ColorSwatch(const QColor& color) : color_(color) {
  setCheckable(true);
  setAutoExclusive(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ColorSwatch::sizeHint() const {
  const int side = static_cast<int>(fontMetrics().height() * kSideOfLine);
  return {side, side};
}

void ColorSwatch::paintDisc(QPainter& painter, const QRectF& rect, const QColor& color, const QPalette& palette) {
  QColor outline = palette.color(QPalette::WindowText);
  outline.setAlphaF(kOutlineOpacity);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(outline, 1));
  painter.setBrush(color);
  painter.drawEllipse(rect.adjusted(0.5, 0.5, -0.5, -0.5));
}

void ColorSwatch::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.4);
  const QRectF whole(rect());
  paintDisc(painter, whole.adjusted(kInset, kInset, -kInset, -kInset), color_, palette());
  if (isChecked()) {
    const double inset = kInset - kRing - 1;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::WindowText), kRing));
    painter.drawEllipse(whole.adjusted(inset, inset, -inset, -inset));
  }
  if (hasFocus()) {
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.backgroundColor = palette().color(QPalette::Window);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
  }
}

}  // namespace rondora
