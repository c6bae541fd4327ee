#pragma once

#include <QCache>
#include <QColor>
#include <QPixmap>
#include <QString>
#include <string>

namespace rondora {

/// Pictures of symbols and emoji for a grid with thousands of them. Keeps some hundred, apart from the cache of the
/// ring's icons, for as long as it lives.
class IconCellPictures {
 public:
  /// `side` points wide and high; symbols are drawn in `tint`.
  QPixmap picture(const std::string& icon, int side, const QColor& tint, double pixelsPerPoint);

 private:
  static constexpr int kMaxKept = 512;
  QCache<QString, QPixmap> kept_{kMaxKept};
};

}  // namespace rondora
