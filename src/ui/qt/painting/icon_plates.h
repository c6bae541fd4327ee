#pragma once

#include <QImage>
#include <map>
#include <tuple>

#include "base/display_list.h"

namespace rondora {

/// Icons on plates, made once for each icon and its backgrounds. Main thread.
class IconPlates {
 public:
  /// The icon itself where it is distinct, else the icon on a plate of `side` pixels.
  QImage plated(const QImage& icon, const IconBackgrounds& backgrounds, int side);

 private:
  std::map<std::tuple<qint64, QRgb, QRgb, QRgb>, QImage> made_;
};

}  // namespace rondora
