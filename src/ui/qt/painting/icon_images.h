#pragma once

#include <QHash>
#include <QImage>
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "base/display_list.h"
#include "platform/application_icons.h"

namespace rondora {

/// The file with the picture of a web site, by its origin; nothing when there is none.
using SitePicture = std::function<std::optional<std::filesystem::path>(std::string_view site)>;

/// The icons of display lists as pixels, cached by kind, name, size and tint, and made again when the file or the
/// application behind the name changes. An icon without a picture gets a neutral one. Main thread.
class IconImages {
 public:
  /// `applicationIcons` must outlive the object.
  explicit IconImages(const ApplicationIcons& applicationIcons, SitePicture sitePicture = {})
      : applicationIcons_(applicationIcons), sitePicture_(std::move(sitePicture)) {}

  /// Fitted into `side` pixels; one side of the result may be shorter. A null image for `IconKind::none`.
  QImage image(const IconCommand& icon, int side);

 private:
  struct Found {
    QImage image;
    bool keep = true;
  };
  IconCommand withFile(const IconCommand& icon) const;
  QString cacheKey(const IconCommand& icon, int side) const;
  Found make(const IconCommand& icon, int side) const;
  Found makeApplication(const IconCommand& icon, int side) const;

  const ApplicationIcons& applicationIcons_;
  SitePicture sitePicture_;
  QHash<QString, QImage> cache_;
};

}  // namespace rondora
