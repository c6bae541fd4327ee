#include "ui/qt/painting/icon_images.h"

#include <QColor>
#include <QDateTime>
#include <QFileInfo>
#include <QIcon>

#include "model/symbol_name.h"
#include "platform/qt/qt_text.h"
#include "ui/qt/painting/application_icon_images.h"
#include "ui/qt/painting/emoji_images.h"
#include "ui/qt/painting/qt_conversions.h"
#include "ui/qt/painting/symbol_images.h"

namespace rondora {

namespace {

/// Far more than a document's menus show; beyond it the cache starts over.
constexpr qsizetype kMaxCached = 1024;

/// Identifies the file's present content.
QString versionOf(const QString& file) {
  return QStringLiteral("%1|%2").arg(file).arg(QFileInfo(file).lastModified().toMSecsSinceEpoch());
}

/// Identifies the present icon of the installed application; another application may have the same name later.
QString versionOf(const ApplicationIconSource& source) {
  const QString themeName = toQString(source.themeName);
  if (themeName.startsWith('/')) return versionOf(themeName);
  if (!themeName.isEmpty()) return QStringLiteral("%1|%2").arg(QIcon::themeName(), themeName);
  return versionOf(toQString(source.filePath));
}

}  // namespace

QString IconImages::cacheKey(const IconCommand& icon, int side) const {
  QString key = QStringLiteral("%1|%2|").arg(static_cast<int>(icon.kind)).arg(side);
  switch (icon.kind) {
    case IconKind::imageFile:
    case IconKind::favicon:
      return key + versionOf(toQString(icon.name));
    case IconKind::application: {
      const auto source = applicationIcons_.iconSource(icon.name);
      return key + toQString(icon.name) + '|' + (source ? versionOf(*source) : QString());
    }
    case IconKind::symbol:
      return key + toQColor(icon.tint).name(QColor::HexArgb) + toQString(icon.name);
    case IconKind::none:
    case IconKind::emoji:
      break;
  }
  return key + toQString(icon.name);
}

/// Finds the file that holds a site's picture.
IconCommand IconImages::withFile(const IconCommand& icon) const {
  IconCommand command = icon;
  if (const auto file = sitePicture_ ? sitePicture_(icon.name) : std::nullopt) {
    command.name = file->string();
  } else {
    command.kind = IconKind::symbol;
    command.name = kSiteSymbolName;
  }
  return command;
}

QImage IconImages::image(const IconCommand& wanted, int side) {
  if (wanted.kind == IconKind::none || side <= 0) return {};
  const IconCommand icon = wanted.kind == IconKind::favicon ? withFile(wanted) : wanted;
  const QString key = cacheKey(icon, side);
  if (const auto found = cache_.constFind(key); found != cache_.constEnd()) return *found;
  Found made = make(icon, side);
  made.image.convertTo(QImage::Format_ARGB32_Premultiplied);
  if (cache_.size() >= kMaxCached) cache_.clear();
  if (made.keep) cache_.insert(key, made.image);
  return made.image;
}

IconImages::Found IconImages::make(const IconCommand& icon, int side) const {
  Found found;
  switch (icon.kind) {
    case IconKind::none:
      break;
    case IconKind::symbol:
      found.image = symbolImage(icon.name, side, icon.tint);
      break;
    case IconKind::emoji:
      found.image = emojiImage(icon.name, side);
      break;
    case IconKind::application:
      return makeApplication(icon, side);
    case IconKind::imageFile:
      found.image = imageFileImage(toQString(icon.name), side);
      break;
    case IconKind::favicon:
      found.image = faviconImage(toQString(icon.name), side);
      break;
  }
  if (found.image.isNull()) found = {symbolImage({}, side, icon.tint), false};
  return found;
}

/// Not cached without an icon: the application may be installed, or show a window, a moment later.
IconImages::Found IconImages::makeApplication(const IconCommand& icon, int side) const {
  for (const auto find : {&ApplicationIcons::iconSource, &ApplicationIcons::windowIconSource}) {
    const auto source = (applicationIcons_.*find)(icon.name);
    const QImage image = source ? applicationIconImage(*source, side) : QImage();
    if (!image.isNull()) return {image, true};
  }
  return {symbolImage(kApplicationSymbolName, side, icon.tint), false};
}

}  // namespace rondora
