#include "ui/qt/symbol_images.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QSvgRenderer>
#include <QTransform>
#include <algorithm>
#include <cmath>

#include "ui/qt/qt_conversions.h"
#include "ui/qt/symbol_table.h"

// Outside of any namespace, as the resource compiler's names are.
static void initializeSymbols() {
  Q_INIT_RESOURCE(rondora_symbols);
  Q_INIT_RESOURCE(rondora_own_symbols);
}

namespace rondora {

namespace {

constexpr const char* kGlyphFont = "Symbola";
constexpr std::string_view kNeutralSymbol = "app";
/// Pictures leave about this part of their square free on either side; glyphs follow them.
constexpr double kGlyphMargin = 0.04;
/// Width of the line that strengthens thin glyphs, as a part of the square's side.
constexpr double kStrengthening = 0.03;

QImage transparentSquare(int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

void tintOpaqueParts(QImage& image, Color tint) {
  QPainter painter(&image);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(image.rect(), toQColor(tint));
}

QPainterPath glyphOutline(char32_t glyph) {
  static const QRawFont font = QRawFont::fromFont(QFont(kGlyphFont));
  if (font.familyName() != kGlyphFont) return {};
  const auto indexes = font.glyphIndexesForString(QString::fromUcs4(&glyph, 1));
  return indexes.isEmpty() || indexes.front() == 0 ? QPainterPath() : font.pathForGlyph(indexes.front());
}

/// Centres `bounds` in a square of `side` and fills it but for the margin.
QTransform fitting(const QRectF& bounds, int side) {
  const double scale = side * (1 - 2 * kGlyphMargin) / std::max(bounds.width(), bounds.height());
  QTransform transform;
  transform.translate(side / 2.0, side / 2.0);
  transform.scale(scale, scale);
  transform.translate(-bounds.center().x(), -bounds.center().y());
  return transform;
}

double signedArea(const QPolygonF& polygon) {
  double twice = 0;
  for (qsizetype i = 0; i < polygon.size(); ++i) {
    const QPointF a = polygon[i];
    const QPointF b = polygon[(i + 1) % polygon.size()];
    twice += a.x() * b.y() - b.x() * a.y();
  }
  return twice / 2;
}

/// The shape with its holes filled: a font's outer contours run one way round, those of holes the other.
QPainterPath silhouette(const QPainterPath& shape) {
  const QList<QPolygonF> contours = shape.toSubpathPolygons();
  double largest = 0;
  for (const QPolygonF& contour : contours) {
    if (const double area = signedArea(contour); std::abs(area) > std::abs(largest)) largest = area;
  }
  QPainterPath result;
  result.setFillRule(Qt::WindingFill);
  for (const QPolygonF& contour : contours) {
    if (signedArea(contour) * largest > 0) result.addPolygon(contour);
  }
  return result;
}

void paintGlyph(QPainter& painter, const QPainterPath& shape, GlyphStyle style, int side, const QColor& color) {
  if (style == GlyphStyle::lineDrawn) {
    const QPainterPath filled = silhouette(shape);
    painter.fillPath(filled, color);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(shape, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.strokePath(filled, QPen(color, side * kStrengthening, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    return;
  }
  painter.fillPath(shape, color);
  if (style == GlyphStyle::thin) {
    painter.strokePath(shape, QPen(color, side * kStrengthening, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
}

}  // namespace

QImage embeddedSymbolImage(std::string_view file, int side, Color tint) {
  initializeSymbols();
  QSvgRenderer renderer(":/symbols/" + toQString(file) + ".svg");
  if (!renderer.isValid()) return {};
  QImage image = transparentSquare(side);
  {
    QPainter painter(&image);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, image.rect());
  }
  tintOpaqueParts(image, tint);
  return image;
}

QImage glyphImage(char32_t glyph, GlyphStyle style, int side, Color tint) {
  const QPainterPath outline = glyphOutline(glyph);
  if (outline.isEmpty()) return {};
  QImage image = transparentSquare(side);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPainterPath shape = fitting(outline.boundingRect(), side).map(outline);
  paintGlyph(painter, shape, style, side, toQColor(tint));
  return image;
}

QImage symbolImage(std::string_view name, int side, Color tint) {
  const auto entry = findSymbol(name);
  QImage image;
  if (entry)
    image = entry->file.empty() ? glyphImage(entry->glyph, entry->style, side, tint)
                                : embeddedSymbolImage(entry->file, side, tint);
  return image.isNull() ? embeddedSymbolImage(kNeutralSymbol, side, tint) : image;
}

}  // namespace rondora
