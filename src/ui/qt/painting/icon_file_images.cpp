#include "ui/qt/painting/icon_file_images.h"

#include <QFileInfo>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QStringList>
#include <algorithm>
#include <string>
#include <vector>

#include "platform/qt/qt_text.h"

namespace rondora {

namespace {

constexpr qint64 kMaxFileBytes = 16 << 20;
/// Drawing a vector file takes far longer than reading a pixel file of the same size.
constexpr qint64 kMaxVectorFileBytes = 1 << 20;
constexpr int kMaxSide = 4096;

bool isSensible(QSize size) { return !size.isEmpty() && size.width() <= kMaxSide && size.height() <= kMaxSide; }

QImage fitted(const QImage& image, int side) {
  if (image.isNull() || std::max(image.width(), image.height()) == side) return image;
  return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// The unpacked size of a compressed drawing is unknown, so it counts as too large.
bool isTooLarge(const QByteArray& format, qint64 bytes) {
  if (format == "svg") return bytes > kMaxVectorFileBytes;
  return format == "svgz" || bytes > kMaxFileBytes;
}

/// True when reading at the image's own size would lose sharpness or time.
bool shouldReadScaled(const QByteArray& format, QSize size, int side) {
  return format == "svg" || (format == "jpeg" && std::max(size.width(), size.height()) > 4 * side);
}

/// A pixel image in its own size, or reduced while reading; a drawing in that of a square of `side` pixels.
QImage readImageFile(const QString& path, int side) {
  const QFileInfo file(path);
  if (!file.isAbsolute() || !file.isFile() || file.size() > kMaxFileBytes) return {};
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QByteArray format = reader.format();  // the reader forgets it later on
  if (isTooLarge(format, file.size())) return {};
  const QSize size = reader.size();
  if (!isSensible(size)) return {};
  if (shouldReadScaled(format, size, side)) reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio));
  // Scaling an image of a few colours would dither it.
  return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Some desktop entries name theme icons with a file ending.
QString withoutEnding(const QString& name) {
  for (const char* ending : {".png", ".svg", ".xpm"}) {
    if (name.endsWith(QLatin1String(ending))) return name.chopped(4);
  }
  return name;
}

QStringList toQStringList(const std::vector<std::string>& texts) {
  QStringList result;
  for (const std::string& text : texts) result.append(toQString(text));
  return result;
}

/// Changing a setting makes the toolkit read the theme again.
void useTheme(const IconTheme& theme) {
  const QStringList folders = toQStringList(theme.folders);
  const QStringList looseFolders = toQStringList(theme.looseFolders);
  const QString name = toQString(theme.name);
  const QString fallbackName = toQString(theme.fallbackName);
  if (QIcon::themeSearchPaths() != folders) QIcon::setThemeSearchPaths(folders);
  if (QIcon::fallbackSearchPaths() != looseFolders) QIcon::setFallbackSearchPaths(looseFolders);
  if (QIcon::fallbackThemeName() != fallbackName) QIcon::setFallbackThemeName(fallbackName);
  if (QIcon::themeName() != name) QIcon::setThemeName(name);
}

/// True when the image fills its square, as sites' pictures for home screens do.
bool isFullTile(const QImage& image) {
  constexpr int kMinSide = 64;
  const int right = image.width() - 1;
  const int bottom = image.height() - 1;
  if (image.width() != image.height() || right < kMinSide) return false;
  for (const QPoint point : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)}) {
    if (qAlpha(image.pixel(point)) != 255) return false;
  }
  return true;
}

/// The part of the tile's square that `image` takes: all of it, or the middle, without enlarging it too much.
QRectF placeInTile(const QImage& image, int side) {
  if (isFullTile(image)) return QRectF(0, 0, side, side);
  constexpr double kShare = 0.68;
  constexpr double kMaxEnlargement = 2.5;
  const double largest = std::min(side * kShare, kMaxEnlargement * std::max(image.width(), image.height()));
  QRectF place(QPointF(0, 0), QSizeF(image.size()).scaled(largest, largest, Qt::KeepAspectRatio));
  place.moveCenter(QPointF(side / 2.0, side / 2.0));
  return place;
}

}  // namespace

QImage imageFileImage(const QString& path, int side) { return fitted(readImageFile(path, side), side); }

QImage siteFileImage(const QString& path, int side) {
  const QImage picture = readImageFile(path, side);
  if (picture.isNull()) return {};
  constexpr double kCorner = 0.22;
  const QRectF place = placeInTile(picture, side);
  QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
  tile.fill(Qt::transparent);
  QPainter painter(&tile);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath shape;
  shape.addRoundedRect(tile.rect(), kCorner * side, kCorner * side);
  painter.fillPath(shape, QColor(248, 248, 250));
  painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
  const QRect pixels = place.toRect();
  painter.drawImage(pixels, picture.scaled(pixels.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  return tile;
}

QImage themeIconImage(const QString& name, const IconTheme& theme, int side) {
  useTheme(theme);
  const QIcon icon = QIcon::fromTheme(withoutEnding(name));
  if (icon.isNull()) return {};
  return fitted(icon.pixmap(QSize(side, side), 1.0).toImage(), side);
}

}  // namespace rondora
