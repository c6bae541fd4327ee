#pragma once

#include <QHash>
#include <QImage>
#include <QPair>

#include "base/display_list.h"

namespace rondora {

/// Icons on plates, made once for each icon and pair of backgrounds. Main thread.
class IconPlates {
 public:
  /// The icon itself where it is distinct, else the icon on a plate of `side` pixels.
  QImage plated(const QImage& icon, const IconBackgrounds& backgrounds, int side);

 private:
  QHash<QPair<qint64, quint64>, QImage> made_;
};

}  // namespace rondora
