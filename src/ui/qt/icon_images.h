#pragma once

#include <QHash>
#include <QImage>
#include <QString>

#include "base/display_list.h"
#include "platform/application_icons.h"

namespace rondora {

/// The icons of display lists as pixels, made once for each kind, name, size and tint. What has no picture gets a
/// neutral one. Main thread.
class IconImages {
 public:
  /// `applicationIcons` outlives this object.
  explicit IconImages(const ApplicationIcons& applicationIcons) : applicationIcons_(applicationIcons) {}

  /// Fitted into `side` pixels; one side of the result may be shorter. A null image for `IconKind::none`.
  QImage image(const IconCommand& icon, int side);

 private:
  struct Found {
    QImage image;
    bool keep = true;
  };
  Found make(const IconCommand& icon, int side) const;
  Found makeApplication(const IconCommand& icon, int side) const;

  const ApplicationIcons& applicationIcons_;
  QHash<QString, QImage> cache_;
};

}  // namespace rondora
