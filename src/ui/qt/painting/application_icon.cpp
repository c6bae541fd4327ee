#include "ui/qt/painting/application_icon.h"

#include <QPainter>
#include <QSvgRenderer>

// In the global namespace, like the resource compiler's names.
static void initializeApplicationIcon() { Q_INIT_RESOURCE(rondora_application_icon); }

namespace rondora {
namespace {

constexpr const char* kDrawing = ":/application-icon/io.github.rondora.Rondora.svg";

}  // namespace

QPixmap applicationPixmap(int side, double devicePixelRatio) {
  initializeApplicationIcon();
  QSvgRenderer drawing{QString(kDrawing)};
  QPixmap pixmap(qRound(side * devicePixelRatio), qRound(side * devicePixelRatio));
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  drawing.render(&painter);
  painter.end();
  pixmap.setDevicePixelRatio(devicePixelRatio);
  return pixmap;
}

QIcon applicationIcon() {
  QIcon icon;
  for (const int side : {16, 22, 24, 32, 48, 64, 128}) icon.addPixmap(applicationPixmap(side, 1));
  return icon;
}

}  // namespace rondora
