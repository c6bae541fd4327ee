#include "ui/qt/painting/emoji_images.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "platform/qt/qt_text.h"

namespace rondora {

namespace {

constexpr const char* kEmojiFont = "Noto Color Emoji";
/// The size at which the font's own bitmaps are drawn without scaling.
constexpr int kNativePixelSize = 109;
constexpr int kMargin = 32;
/// A sequence that the font lacks is drawn as its parts side by side.
constexpr int kMaxWidth = 1024;

/// Selectors between text and emoji presentation. The font spells its sequences without them; with them the toolkit
/// would look in other fonts and tear a sequence apart.
bool isVariationSelector(QChar c) { return c == QChar(0xFE0E) || c == QChar(0xFE0F); }

QFont emojiFont() {
  QFont font(kEmojiFont);
  font.setPixelSize(kNativePixelSize);
  if (QFontDatabase::hasFamily(kEmojiFont)) font.setStyleStrategy(QFont::NoFontMerging);
  return font;
}

/// The toolkit keeps the glyphs of the font's last four transformations, 70 kB for an emoji, until the font is no
/// longer used. More transformations than that, all of which give the same picture, have it drop them.
double forgottenScale() {
  constexpr int kScales = 6;
  constexpr double kStep = 1e-4;
  static int turn = 0;
  turn = turn % kScales + 1;
  return 1 + turn * kStep;
}

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
  const QFont font = emojiFont();
  const QFontMetrics metrics(font);
  const int width = std::min(metrics.horizontalAdvance(text), kMaxWidth);
  QImage image(width + 2 * kMargin, metrics.height() + 2 * kMargin, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setFont(font);
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = forgottenScale();
  painter.scale(scale, scale);
  painter.drawText(kMargin, kMargin + metrics.ascent(), text);
  painter.end();
  const QRect opaque = opaqueBounds(image);
  return opaque.isEmpty() ? QImage() : image.copy(opaque);
}

}  // namespace

QImage emojiImage(std::string_view text, int side) {
  QString sequence = toQString(text);
  sequence.removeIf(isVariationSelector);
  const QImage native = nativeImage(sequence);
  if (native.isNull()) return {};
  return native.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace rondora
