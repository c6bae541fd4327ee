#include "ui/qt/painting/symbol_images.h"

#include <QPainter>
#include <QSvgRenderer>
#include <string>

#include "model/symbol_name.h"
#include "platform/qt/qt_text.h"
#include "ui/qt/interface/qt_conversions.h"
#include "ui/qt/painting/symbol_table.h"

// In the global namespace, like the resource compiler's names.
static void initializeSymbols() {
  Q_INIT_RESOURCE(rondora_symbols);
  Q_INIT_RESOURCE(rondora_own_symbols);
}

namespace rondora {

namespace {

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

/// The embedded picture of that base name; a null image when it is missing.
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

}  // namespace

QImage symbolImage(std::string_view name, int side, Color tint) {
  for (const std::string& candidate : symbolCandidates(name)) {
    const auto entry = findSymbol(candidate);
    QImage image = entry ? embeddedSymbolImage(entry->file, side, tint) : QImage();
    if (!image.isNull()) return image;
  }
  return {};
}

}  // namespace rondora
