#include "ui/qt/settings/item_icons.h"

#include <QPainter>
#include <cmath>

namespace rondora {

QPixmap ItemIcons::picture(const IconReference& icon, int side, const QColor& tint, double pixelsPerPoint) const {
  const int pixels = std::max(1, static_cast<int>(std::lround(side * pixelsPerPoint)));
  QPixmap result(pixels, pixels);
  result.fill(Qt::transparent);
  const IconCommand command{.kind = icon.kind,
                            .name = icon.name,
                            .rect = {},
                            .tint = {tint.redF(), tint.greenF(), tint.blueF(), tint.alphaF()}};
  const QImage drawn = draw_ && icon.kind != IconKind::none ? draw_(command, pixels) : QImage();
  if (!drawn.isNull()) {
    QPainter painter(&result);
    painter.drawImage((pixels - drawn.width()) / 2, (pixels - drawn.height()) / 2, drawn);
  }
  result.setDevicePixelRatio(pixelsPerPoint);
  return result;
}

QIcon ItemIcons::ofRow(const IconReference& icon, int side, const QPalette& palette, double pixelsPerPoint) const {
  QIcon result(picture(icon, side, palette.color(QPalette::Text), pixelsPerPoint));
  result.addPixmap(picture(icon, side, palette.color(QPalette::HighlightedText), pixelsPerPoint), QIcon::Selected);
  return result;
}

}  // namespace rondora
