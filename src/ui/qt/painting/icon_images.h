#pragma once

#include <QHash>
#include <QImage>
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/display_list.h"
#include "platform/application_icons.h"
#include "ui/painting/icon_sources.h"
#include "ui/qt/painting/decoded_icons.h"
#include "ui/qt/painting/icon_plates.h"

namespace rondora {

/// The icons of display lists as pixels, cached by kind, name, size and tint, and made again when the file or the
/// application behind the name changes. An icon without a picture, or whose picture is not decoded yet, is a neutral
/// one. Main thread; waits for no picture.
class IconImages {
 public:
  /// `applicationIcons` must outlive the object.
  explicit IconImages(const ApplicationIcons& applicationIcons, IconSources sources = {})
      : applicationIcons_(applicationIcons),
        sitePicture_(std::move(sources.sitePicture)),
        decoded_(std::move(sources.decode)) {}

  /// Fitted into `side` pixels; one side of the result may be shorter. A null image for `IconKind::none`.
  QImage image(const IconCommand& icon, int side);

 private:
  QImage unplated(const IconCommand& icon, int side);
  QImage drawn(const IconCommand& icon, int side);
  QImage orSymbol(const QImage& image, std::string_view symbol, const IconCommand& icon, int side);
  void keep(const QString& key, const QImage& image);
  DecodedIcons::Icon fileIcon(PictureRequest::Source source, const std::string& file, int side);
  QImage siteImage(const IconCommand& icon, int side);
  QImage applicationImage(const IconCommand& icon, int side);
  DecodedIcons::Icon installedImage(const IconCommand& icon, int side);
  QImage windowIcon(const IconCommand& icon, int side);

  const ApplicationIcons& applicationIcons_;
  SitePicture sitePicture_;
  QHash<QString, QImage> made_;  // symbols, emoji and icons of windows
  DecodedIcons decoded_;
  IconPlates plates_;
};

}  // namespace rondora
