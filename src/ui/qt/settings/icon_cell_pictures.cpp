#include "ui/qt/settings/icon_cell_pictures.h"

#include <QImage>
#include <cmath>

#include "icons/icon_reference.h"
#include "platform/qt/qt_text.h"
#include "ui/qt/painting/emoji_images.h"
#include "ui/qt/painting/symbol_images.h"

namespace rondora {

QPixmap IconCellPictures::picture(const std::string& icon, int side, const QColor& tint, double pixelsPerPoint) {
  const int pixels = static_cast<int>(std::lround(side * pixelsPerPoint));
  const bool isEmoji = IconReference::parse(icon).kind == IconKind::emoji;
  const QString look = isEmoji ? QString() : tint.name(QColor::HexArgb);
  const QString key = QStringLiteral("%1|%2|").arg(pixels).arg(look) + toQString(icon);
  if (const QPixmap* kept = kept_.object(key)) return *kept;
  const Color color{tint.redF(), tint.greenF(), tint.blueF(), tint.alphaF()};
  QPixmap made = QPixmap::fromImage(isEmoji ? emojiImage(icon, pixels) : symbolImage(icon, pixels, color));
  made.setDevicePixelRatio(pixelsPerPoint);
  kept_.insert(key, new QPixmap(made));
  return made;
}

}  // namespace rondora
