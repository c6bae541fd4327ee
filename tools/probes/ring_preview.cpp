// Renders the ring into a PNG without opening it: number of items, highlighted item, scale, background, writing
// direction and appearance keys are arguments.

#include <QImage>
#include <QPainter>
#include <QTextStream>
#include <algorithm>
#include <optional>

#include "probe_application.h"
#include "sample_ring.h"
#include "ui/qt/painting/picture_decoding.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"

namespace {

using namespace rondora;

PixelBuffer bufferOf(QImage& image) {
  return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
          static_cast<int>(image.bytesPerLine() / 4)};
}

QImage draw(const SampleRing& ring, std::optional<std::size_t> highlighted, double scale, QImage background,
            bool seesBackground) {
  const ThemeIcons icons;
  QtPictureRasterizer rasterizer(icons, {.sitePicture = {}, .decode = decodeAtOnce});
  const auto prepared = rasterizer.prepare(ring.picture, scale);
  if (seesBackground) prepared->setSnapshot(bufferOf(background));
  QImage image(background.size(), QImage::Format_ARGB32_Premultiplied);
  prepared->paint(ring.states(highlighted), {scale, 1, 1, {{0, 0}, ring.picture.size}}, bufferOf(image));
  QPainter(&background).drawImage(0, 0, image);
  return background;
}

}  // namespace

int main(int argc, char** argv) {
  ProbeApplication application(argc, argv, "offscreen");
  QCommandLineParser& parser = application.parser;
  parser.addPositionalArgument("file", "The PNG to write.");
  parser.addOptions({{"items", "Number of items.", "count", "6"},
                     {"highlight", "Index of the highlighted item, -1 for none.", "index", "-1"},
                     {"scale", "Pixels a point.", "factor", "1"},
                     {"background", "white, black, busy or photo.", "name", "busy"},
                     {"imitation", "Imitate the glass, as without a snapshot."},
                     {"application", "The application whose icon stands in the hub.", "id"},
                     {"set", "An appearance key, such as menuRadius=180; may be repeated.", "key=value"},
                     {"title", "The title of every item.", "text"},
                     {"icon", "The icon of every item.", "name"},
                     {"edge", "The visible side of the hub at a screen edge, such as 1,-1.", "x,y", "0,0"},
                     {"arabic", "Right-to-left titles."}});
  application.parse();
  if (parser.positionalArguments().size() != 1) parser.showHelp(2);
  PieMenu menu = sampleMenu(parser.value("items").toUInt(), parser.isSet("arabic"));
  for (const QString& setting : parser.values("set")) {
    if (setAppearance(menu, setting)) continue;
    QTextStream(stderr) << "No such appearance key or value: " << setting << '\n';
    return 2;
  }
  for (PieMenuItem& item : menu.items) {
    if (parser.isSet("title")) item.title = parser.value("title").toStdString();
    if (parser.isSet("icon")) item.icon = parser.value("icon").toStdString();
  }
  const QStringList edge = parser.value("edge").split(',');
  HubContents hub;
  if (parser.isSet("application")) hub.application = parser.value("application").toStdString();
  hub.visibleSide = {edge.value(0).toDouble(), edge.value(1).toDouble()};
  const SampleRing ring = SampleRing::make(std::move(menu), std::move(hub));
  std::optional<std::size_t> highlighted;
  if (const int index = parser.value("highlight").toInt(); index >= 0) {
    highlighted = std::min(static_cast<std::size_t>(index), ring.menu.items.size() - 1);
  }
  const double scale = parser.value("scale").toDouble();
  const QSize size = (QSizeF(ring.picture.size.width, ring.picture.size.height) * scale).toSize();
  const QImage image =
      draw(ring, highlighted, scale, sampleBackground(parser.value("background"), size), !parser.isSet("imitation"));
  return image.save(parser.positionalArguments().front()) ? 0 : 1;
}
