#include "ui/qt/application_icon_images.h"

#include <QFileInfo>
#include <QIcon>
#include <QImageReader>
#include <QPixmap>
#include <algorithm>
#include <cstring>

#include "ui/qt/qt_conversions.h"

namespace rondora {

namespace {

constexpr qint64 kLargestFile = 16 << 20;
/// A drawing takes far longer than its size lets one expect.
constexpr qint64 kLargestVectorFile = 1 << 20;
constexpr int kLargestSide = 4096;

bool isSensible(QSize size) { return !size.isEmpty() && size.width() <= kLargestSide && size.height() <= kLargestSide; }

QImage fitted(const QImage& image, int side) {
  if (image.isNull() || std::max(image.width(), image.height()) == side) return image;
  return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// Nothing is known of what a packed drawing unpacks to, so it counts as too large.
bool isTooLarge(const QImageReader& reader, qint64 bytes) {
  if (reader.format() == "svg") return bytes > kLargestVectorFile;
  return reader.format() == "svgz" || bytes > kLargestFile;
}

/// Desktop entries name theme icons with an ending now and then.
QString withoutEnding(const QString& name) {
  for (const char* ending : {".png", ".svg", ".xpm"}) {
    if (name.endsWith(QLatin1String(ending))) return name.chopped(4);
  }
  return name;
}

QImage themeImage(std::string_view name, int side) {
  const QIcon icon = QIcon::fromTheme(withoutEnding(toQString(name)));
  if (icon.isNull()) return {};
  return fitted(icon.pixmap(QSize(side, side), 1.0).toImage(), side);
}

QImage windowImage(const ApplicationIconSource& source, int side) {
  const QSize size(source.pixelWidth, source.pixelHeight);
  if (!isSensible(size)) return {};
  const auto count = static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height());
  if (source.pixels.size() < count) return {};
  QImage image(size, QImage::Format_ARGB32);
  std::memcpy(image.bits(), source.pixels.data(), count * sizeof(std::uint32_t));
  return fitted(image, side);
}

}  // namespace

QImage imageFileImage(const QString& path, int side) {
  const QFileInfo file(path);
  if (!file.isAbsolute() || !file.isFile() || file.size() > kLargestFile) return {};
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (isTooLarge(reader, file.size())) return {};
  const QSize size = reader.size();
  if (!isSensible(size)) return {};
  if (reader.format() == "svg") reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio));
  return fitted(reader.read(), side);
}

QImage applicationIconImage(const ApplicationIconSource& source, int side) {
  if (!source.themeName.empty()) {
    const QString name = toQString(source.themeName);
    return name.startsWith('/') ? imageFileImage(name, side) : themeImage(source.themeName, side);
  }
  if (!source.filePath.empty()) return imageFileImage(toQString(source.filePath), side);
  return windowImage(source, side);
}

}  // namespace rondora
