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

/// The file with the picture of a web site, by its origin; nothing while there is none.
using SitePicture = std::function<std::optional<std::filesystem::path>(std::string_view site)>;

/// The icons of display lists as pixels, made once for each kind, name, size and tint, and again when the file or the
/// application behind the name is another one. What has no picture gets a neutral one. Main thread.
class IconImages {
 public:
  /// `applicationIcons` outlives this object.
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
