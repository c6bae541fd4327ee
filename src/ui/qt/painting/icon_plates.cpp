#include "ui/qt/painting/icon_plates.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "pie/picture/icon_plate.h"
#include "ui/qt/interface/qt_conversions.h"

namespace rondora {
namespace {

/// Far more than rings show; beyond it the cache starts over.
constexpr std::size_t kMaxMade = 512;

bool isSolid(const QImage& image, int x, int y) { return image.valid(x, y) && qAlpha(image.pixel(x, y)) >= 128; }

Color colorAt(const QImage& image, int x, int y) {
  const QColor color = image.pixelColor(x, y);
  return {color.redF(), color.greenF(), color.blueF(), 1};
}

/// The colours along the edge of what is solid.
std::vector<Color> outlineOf(const QImage& image) {
  std::vector<Color> outline;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (!isSolid(image, x, y)) continue;
      const bool isInside =
          isSolid(image, x - 1, y) && isSolid(image, x + 1, y) && isSolid(image, x, y - 1) && isSolid(image, x, y + 1);
      if (!isInside) outline.push_back(colorAt(image, x, y));
    }
  }
  return outline;
}

QImage drawnOn(Color plate, const QImage& icon, int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toQColor(plate));
  painter.drawRoundedRect(image.rect(), icon_plate::kCornerRadius * side, icon_plate::kCornerRadius * side);
  const int inner = static_cast<int>(std::lround(icon_plate::kIconSide * side));
  const QImage small = icon.scaled(inner, inner, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  painter.drawImage((side - small.width()) / 2, (side - small.height()) / 2, small);
  return image;
}

}  // namespace

QImage IconPlates::plated(const QImage& icon, const IconBackgrounds& backgrounds, int side) {
  const auto rgb = [](Color color) { return toQColor(color).rgb(); };
  const std::tuple key{icon.cacheKey(), rgb(backgrounds.darkest), rgb(backgrounds.lightest),
                       rgb(backgrounds.highlighted)};
  if (const auto found = made_.find(key); found != made_.end()) return found->second;
  if (made_.size() >= kMaxMade) made_.clear();
  const auto plate = plateFor(outlineOf(icon), backgrounds);
  return made_.emplace(key, plate ? drawnOn(*plate, icon, side) : icon).first->second;
}

}  // namespace rondora
