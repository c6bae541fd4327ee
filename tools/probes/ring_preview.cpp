// Shows what the ring looks like without opening it: writes a PNG for a number of items, a highlighted item, a scale, a
// background and a writing direction.

#include <QApplication>
#include <QCommandLineParser>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QTextStream>
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "model/palette.h"
#include "model/pie_menu.h"
#include "pie/quick_select.h"
#include "pie/ring_layout.h"
#include "pie/ring_picture.h"
#include "ui/qt/qt_picture_rasterizer.h"
#include "ui/qt/qt_setup.h"

namespace {

using namespace rondora;

class ThemeIcons : public ApplicationIcons {
 public:
  std::optional<ApplicationIconSource> iconSource(std::string_view bundleIdentifier) const override {
    ApplicationIconSource source;
    source.themeName = std::string(bundleIdentifier);
    return source;
  }
  std::optional<ApplicationIconSource> windowIconSource(std::string_view) const override { return std::nullopt; }
};

struct Sample {
  const char* title;
  const char* arabic;
  const char* icon;
};

constexpr Sample kSamples[] = {
    {"Web browser", "متصفح الويب", "safari"},
    {"Terminal", "الطرفية", "terminal"},
    {"Files", "ملفات", "folder.fill"},
    {"Settings", "الإعدادات", "gearshape.fill"},
    {"Music", "موسيقى", "music.note"},
    {"Notes and a title that is far too long for the hub of any ring", "ملاحظات مع Firefox 120 نص طويل", "note.text"},
    {"Pizza", "بيتزا", "🍕"},
    {"Documents", "مستندات", "app:folder"},
    {"Leaf", "ورقة", "leaf.fill"},
    {"Rocket", "صاروخ", "🚀"},
    {"Crown", "تاج", "crown.fill"},
    {"Unknown", "مجهول", "no.such.symbol"},
};

PieMenu makeMenu(std::size_t count, bool arabic) {
  PieMenu menu;
  for (std::size_t i = 0; i < count; ++i) {
    const Sample& sample = kSamples[i % std::size(kSamples)];
    PieMenuItem item;
    item.title = arabic ? sample.arabic : sample.title;
    item.icon = sample.icon;
    item.color = std::string(kItemColorPalette[i % kItemColorPalette.size()]);
    item.sectorIndex = static_cast<std::int64_t>(i);
    menu.items.push_back(item);
  }
  return menu;
}

QImage makeBackground(const QString& name, QSize size) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(name == "white" ? Qt::white : name == "black" ? Qt::black : Qt::darkCyan);
  if (name != "busy") return image;
  QPainter painter(&image);
  QRandomGenerator random(7);
  for (int i = 0; i < 400; ++i) {
    const QPoint corner(random.bounded(size.width()), random.bounded(size.height()));
    const QColor color = QColor::fromHsv(random.bounded(360), 160, 40 + random.bounded(215));
    painter.fillRect(QRect(corner, QSize(random.bounded(120), random.bounded(30))), color);
  }
  return image;
}

std::vector<std::size_t> makeStates(const Picture& picture, std::size_t count, std::optional<std::size_t> highlighted) {
  std::vector<std::size_t> states(picture.layers.size(), 0);
  if (highlighted) states[ring_layers::sector(*highlighted)] = ring_layers::kHighlighted;
  states[ring_layers::title(count)] = ring_layers::titleState(highlighted);
  return states;
}

struct Request {
  std::size_t count = 6;
  std::optional<std::size_t> highlighted;
  double scale = 1;
  QString background;
  bool arabic = false;
  double radius = 150;
};

QImage draw(const Request& request) {
  PieMenu menu = makeMenu(request.count, request.arabic);
  menu.menuRadius = request.radius;
  menu.innerRadius = request.radius * 76 / 150;
  std::vector<std::string> titles;
  for (const PieMenuItem& item : menu.items) titles.push_back(item.title);
  const auto labels = resolvedShortcutLabels(menu.items);
  const RingLayout layout = RingLayout::make(menu, menu.rotationDegrees, menu.items.size(), 2000);
  const Picture picture = makeRingPicture(menu, layout, {menu.items, titles, labels});

  const ThemeIcons icons;
  QtPictureRasterizer rasterizer(icons);
  const QSize size = (QSizeF(picture.size.width, picture.size.height) * request.scale).toSize();
  QImage ring(size, QImage::Format_ARGB32_Premultiplied);
  rasterizer.prepare(picture, request.scale)
      ->paint(makeStates(picture, request.count, request.highlighted), {request.scale, 1, 1, {{0, 0}, picture.size}},
              {reinterpret_cast<std::uint32_t*>(ring.bits()), size.width(), size.height(),
               static_cast<int>(ring.bytesPerLine() / 4)});
  QImage result = makeBackground(request.background, size);
  QPainter(&result).drawImage(0, 0, ring);
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  prepareQt();
  QApplication application(argc, argv);
  configureQt(application, "rondora");
  QCommandLineParser parser;
  parser.addHelpOption();
  parser.addPositionalArgument("file", "The PNG to write.");
  parser.addOptions({{"items", "Number of items.", "count", "6"},
                     {"highlight", "Index of the highlighted item, -1 for none.", "index", "-1"},
                     {"scale", "Pixels a point.", "factor", "1"},
                     {"radius", "The menu's radius.", "points", "150"},
                     {"background", "white, black or busy.", "name", "busy"},
                     {"arabic", "Right-to-left titles."}});
  parser.process(application);
  if (parser.positionalArguments().size() != 1) parser.showHelp(2);
  Request request;
  request.count = parser.value("items").toUInt();
  if (const int index = parser.value("highlight").toInt(); index >= 0) {
    request.highlighted = std::min(static_cast<std::size_t>(index), request.count - 1);
  }
  request.scale = parser.value("scale").toDouble();
  request.radius = parser.value("radius").toDouble();
  request.background = parser.value("background");
  request.arabic = parser.isSet("arabic");
  return draw(request).save(parser.positionalArguments().front()) ? 0 : 1;
}
