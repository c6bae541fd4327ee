#include "ui/qt/painting/icon_plates.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

#include "pie/picture/icon_plate.h"
#include "ui/qt/painting/qt_conversions.h"

namespace rondora {
namespace {

/// Far more than rings show; beyond it the cache starts over.
constexpr qsizetype kMaxMade = 512;

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
  const quint64 colors = quint64{toQColor(backgrounds.normal).rgb()} << 32 | toQColor(backgrounds.highlighted).rgb();
  const auto key = qMakePair(icon.cacheKey(), colors);
  if (const auto found = made_.constFind(key); found != made_.constEnd()) return *found;
  if (made_.size() >= kMaxMade) made_.clear();
  const auto plate = plateFor(outlineOf(icon), backgrounds);
  return *made_.insert(key, plate ? drawnOn(*plate, icon, side) : icon);
}

}  // namespace rondora
