#include "ui/qt/emoji_images.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include "ui/qt/qt_conversions.h"

namespace rondora {

namespace {

constexpr const char* kEmojiFont = "Noto Color Emoji";
/// The size at which the font's own bitmaps are drawn pixel by pixel.
constexpr int kNativePixelSize = 109;
/// The longest emoji sequences have about ten code points.
constexpr std::size_t kLongestEmoji = 64;

QRect opaqueBounds(const QImage& image) {
  QRect bounds;
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(row[x]) != 0) bounds |= QRect(x, y, 1, 1);
    }
  }
  return bounds;
}

QImage nativeImage(const QString& text) {
  QFont font(kEmojiFont);
  font.setPixelSize(kNativePixelSize);
  const QRect bounds = QFontMetrics(font).boundingRect(text).adjusted(-16, -16, 16, 16);
  QImage image(bounds.size().boundedTo({2048, 512}), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setFont(font);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawText(-bounds.topLeft(), text);
  painter.end();
  const QRect opaque = opaqueBounds(image);
  return opaque.isEmpty() ? QImage() : image.copy(opaque);
}

}  // namespace

QImage emojiImage(std::string_view text, int side) {
  const QImage native = nativeImage(toQString(text.substr(0, kLongestEmoji)));
  if (native.isNull()) return {};
  return native.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace rondora
