#include "ui/qt/windows/onboarding_art.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QStringList>
#include <cmath>

#include "ui/qt/painting/symbol_images.h"

namespace rondora {

namespace {

constexpr double kCapHeight = 30;
constexpr double kCapPadding = 11;
constexpr double kCapDistance = 8;
constexpr double kCapRadius = 6;
constexpr int kMarkSide = 22;
constexpr double kMarkLine = 2;
// A contrast of at least 3 : 1 on light and on dark windows (WCAG 2.1, 1.4.11).
constexpr Color kDoneColor{0.14, 0.56, 0.25, 1};

QPixmap transparentPixmap(QSizeF size, double devicePixelRatio) {
  QPixmap pixmap((size * devicePixelRatio).toSize());
  pixmap.setDevicePixelRatio(devicePixelRatio);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

void paintCap(QPainter& painter, const QRectF& rect, const QString& name, const QPalette& palette) {
  const QRectF face = rect.adjusted(0.5, 0.5, -0.5, -2.5);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette.color(QPalette::Mid));
  painter.drawRoundedRect(face.translated(0, 2), kCapRadius, kCapRadius);
  painter.setPen(palette.color(QPalette::Mid));
  painter.setBrush(palette.color(QPalette::Base));
  painter.drawRoundedRect(face, kCapRadius, kCapRadius);
  painter.setPen(palette.color(QPalette::Text));
  painter.drawText(face, Qt::AlignCenter, name);
}

}  // namespace

QPixmap keyCapsPixmap(const QString& hotkey, const QPalette& palette, double devicePixelRatio) {
  const QStringList keys = hotkey.split('+', Qt::SkipEmptyParts);
  const QFontMetricsF metrics(QGuiApplication::font());
  const auto capWidth = [&](const QString& key) {
    return std::ceil(std::max(metrics.horizontalAdvance(key) + 2 * kCapPadding, kCapHeight));
  };
  double width = 1;
  for (const QString& key : keys) width += capWidth(key) + kCapDistance;
  QPixmap pixmap = transparentPixmap({width, kCapHeight + 1}, devicePixelRatio);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  double x = kCapDistance / 2;
  for (const QString& key : keys) {
    paintCap(painter, {x, 0, capWidth(key), kCapHeight}, key, palette);
    x += capWidth(key) + kCapDistance;
  }
  return pixmap;
}

QPixmap stepMarkPixmap(bool isDone, bool isNext, const QPalette& palette, double devicePixelRatio) {
  QPixmap pixmap = transparentPixmap({kMarkSide, kMarkSide}, devicePixelRatio);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF whole(0, 0, kMarkSide, kMarkSide);
  if (isDone) {
    painter.drawImage(whole, symbolImage("checkmark.circle.fill", pixmap.width(), kDoneColor));
    return pixmap;
  }
  QColor color = palette.color(QPalette::WindowText);
  color.setAlphaF(isNext ? 1 : 0.5F);
  painter.setPen(QPen(color, isNext ? 1.5 * kMarkLine : kMarkLine));
  const double inset = kMarkLine;
  painter.drawEllipse(whole.adjusted(inset, inset, -inset, -inset));
  return pixmap;
}

}  // namespace rondora
