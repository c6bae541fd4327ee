#include "ui/qt/painting/icon_images.h"

#include <QColor>
#include <QDateTime>
#include <QFileInfo>
#include <QIcon>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "model/symbol_name.h"
#include "platform/qt/qt_text.h"
#include "ui/qt/interface/qt_conversions.h"
#include "ui/qt/painting/emoji_images.h"
#include "ui/qt/painting/symbol_images.h"

namespace rondora {

namespace {

/// Far more than a document's menus show; beyond it the cache starts over.
constexpr qsizetype kMaxMade = 1024;

/// Identifies the file's present content; empty when it cannot be a picture.
std::string versionOf(const std::string& file) {
  const QFileInfo info(toQString(file));
  if (!info.isAbsolute() || !info.isFile()) return {};
  return std::to_string(info.lastModified().toMSecsSinceEpoch()) + '|' + std::to_string(info.size());
}

PictureRequest requestFor(PictureRequest::Source source, const std::string& content, int side, std::string version) {
  return {.source = source, .side = side, .content = content, .theme = {}, .version = std::move(version)};
}

QImage windowImage(const ApplicationIconSource& source, int side) {
  const QSize size(source.pixelWidth, source.pixelHeight);
  if (size.isEmpty() || std::max(size.width(), size.height()) > PictureDecoder::kMaxSide) return {};
  const auto count = static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height());
  if (source.pixels.size() < count) return {};
  QImage image(size, QImage::Format_ARGB32);
  std::memcpy(image.bits(), source.pixels.data(), count * sizeof(std::uint32_t));
  return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation)
      .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

QImage IconImages::image(const IconCommand& icon, int side) {
  if (icon.kind == IconKind::none || side <= 0) return {};
  const QImage plain = unplated(icon, side);
  return icon.backgrounds && !plain.isNull() ? plates_.plated(plain, *icon.backgrounds, side) : plain;
}

QImage IconImages::unplated(const IconCommand& icon, int side) {
  switch (icon.kind) {
    case IconKind::none:
    case IconKind::symbol:
    case IconKind::emoji:
      return drawn(icon, side);
    case IconKind::application:
      return applicationImage(icon, side);
    case IconKind::imageFile:
      return orSymbol(fileIcon(PictureRequest::Source::imageFile, icon.name, side).image, {}, icon, side);
    case IconKind::favicon:
      return siteImage(icon, side);
  }
  return {};
}

QImage IconImages::orSymbol(const QImage& image, std::string_view symbol, const IconCommand& icon, int side) {
  return image.isNull() ? drawn({IconKind::symbol, std::string(symbol), {}, icon.tint}, side) : image;
}

QImage IconImages::drawn(const IconCommand& icon, int side) {
  const bool isEmoji = icon.kind == IconKind::emoji;
  const QString look = isEmoji ? QStringLiteral("emoji") : toQColor(icon.tint).name(QColor::HexArgb);
  const QString key = QStringLiteral("%1|%2|").arg(side).arg(look) + toQString(icon.name);
  if (const auto found = made_.constFind(key); found != made_.constEnd()) return *found;
  QImage made = isEmoji ? emojiImage(icon.name, side) : symbolImage(icon.name, side, icon.tint);
  if (made.isNull()) made = symbolImage({}, side, icon.tint);
  made.convertTo(QImage::Format_ARGB32_Premultiplied);
  keep(key, made);
  return made;
}

/// Only files that may be pictures reach the decoder.
DecodedIcons::Icon IconImages::fileIcon(PictureRequest::Source source, const std::string& file, int side) {
  const std::string version = versionOf(file);
  if (version.empty()) return {};
  return decoded_.find(requestFor(source, file, side, version));
}

QImage IconImages::siteImage(const IconCommand& icon, int side) {
  const auto file = sitePicture_ ? sitePicture_(icon.name) : std::nullopt;
  const QImage image = file ? fileIcon(PictureRequest::Source::siteFile, file->string(), side).image : QImage();
  return orSymbol(image, kSiteSymbolName, icon, side);
}

QImage IconImages::applicationImage(const IconCommand& icon, int side) {
  const auto [installed, isUnderway] = installedImage(icon, side);
  if (!installed.isNull()) return installed;
  return orSymbol(isUnderway ? QImage() : windowIcon(icon, side), kApplicationSymbolName, icon, side);
}

/// Not cached without an icon: the application may show a window a moment later.
QImage IconImages::windowIcon(const IconCommand& icon, int side) {
  const QString key = QStringLiteral("%1|window|").arg(side) + toQString(icon.name);
  if (const auto found = made_.constFind(key); found != made_.constEnd()) return *found;
  const auto source = applicationIcons_.windowIconSource(icon.name);
  QImage image = source ? windowImage(*source, side) : QImage();
  if (!image.isNull()) keep(key, image);
  return image;
}

void IconImages::keep(const QString& key, const QImage& image) {
  if (made_.size() >= kMaxMade) made_.clear();
  made_.insert(key, image);
}

DecodedIcons::Icon IconImages::installedImage(const IconCommand& icon, int side) {
  const auto source = applicationIcons_.iconSource(icon.name);
  if (!source) return {};
  const bool isThemeIcon = !source->themeName.empty() && !source->themeName.starts_with('/');
  if (isThemeIcon) {
    const std::string version = QIcon::themeName().toStdString();
    return decoded_.find(requestFor(PictureRequest::Source::themeIcon, source->themeName, side, version));
  }
  const std::string& file = source->themeName.empty() ? source->filePath : source->themeName;
  if (!file.empty()) return fileIcon(PictureRequest::Source::imageFile, file, side);
  return {windowImage(*source, side), false};
}

}  // namespace rondora
