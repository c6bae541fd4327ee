#include "ui/qt/tray/status_bar_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <cstddef>

#include "ui/qt/painting/ring_shape.h"

namespace rondora {

namespace {

constexpr std::size_t kSectors = 6;
constexpr std::size_t kChosen = 0;

const QColor kFill(245, 245, 247);
const QColor kOutline(40, 40, 46, 190);

QPainterPath ringPath() {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  for (std::size_t i = 0; i < kSectors; ++i) {
    path.addPath(ringSectorShape(i, kSectors, i == kChosen ? SectorLook::chosen : SectorLook::plain));
  }
  return path;
}

QPixmap pixmap(int side) {
  QPixmap result(side, side);
  result.fill(Qt::transparent);
  QPainter painter(&result);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(side / 2.0, side / 2.0);
  painter.scale(side / 2.0, side / 2.0);
  const QPainterPath ring = ringPath();
  painter.strokePath(ring, QPen(kOutline, 0.16, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(ring, kFill);
  return result;
}

}  // namespace

QIcon StatusBarIcon::make() {
  QIcon icon;
  for (const int side : {16, 22, 24, 32, 48, 64, 128}) icon.addPixmap(pixmap(side));
  return icon;
}

}  // namespace rondora
