#include "sample_ring.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "model/appearance_fields.h"
#include "model/palette.h"
#include "pie/labels/quick_select.h"
#include "pie/picture/ring_picture.h"

namespace rondora {
namespace {

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

void paintLandscape(QPainter& painter, const QRectF& rect) {
  QLinearGradient sky(rect.topLeft(), rect.bottomLeft());
  sky.setColorAt(0, QColor(34, 58, 120));
  sky.setColorAt(0.45, QColor(238, 140, 96));
  sky.setColorAt(0.6, QColor(255, 214, 140));
  sky.setColorAt(1, QColor(60, 92, 96));
  painter.fillRect(rect, sky);
  for (int range = 0; range < 4; ++range) {
    QPainterPath hills;
    const double base = rect.top() + rect.height() * (0.5 + 0.13 * range);
    hills.moveTo(rect.bottomLeft());
    for (double x = 0; x <= rect.width(); x += 4) {
      const double y = std::sin(x / (90.0 + 20 * range) + range) * 34 + std::sin(x / 31.0 + 2 * range) * 11;
      hills.lineTo(rect.left() + x, base - y);
    }
    hills.lineTo(rect.bottomRight());
    painter.fillPath(hills, QColor::fromHsv(220 - 30 * range, 120, 120 - 22 * range));
  }
}

void paintText(QPainter& painter, const QRectF& rect, QRandomGenerator& random) {
  QFont font = painter.font();
  font.setPixelSize(13);
  painter.setFont(font);
  const QStringList words = {"the",   "window", "of",   "a",     "text", "editor", "with", "many",   "small",
                             "words", "in",     "rows", "lorem", "pie",  "menu",   "ring", "sector", "quickly"};
  for (double y = rect.top() + 18; y < rect.bottom() - 4; y += 18) {
    QString line;
    const auto length = random.bounded(6, 20);
    for (int i = 0; i < length; ++i) line += words[random.bounded(static_cast<int>(words.size()))] + ' ';
    painter.setPen(QColor::fromHsv(random.bounded(360), random.bounded(2) * 180, 90));
    painter.drawText(QRectF(rect.left() + 10, y - 14, rect.width() - 14, 18), Qt::AlignLeft | Qt::TextSingleLine, line);
  }
}

void paintWindow(QPainter& painter, const QRectF& rect, const QColor& content, QRandomGenerator& random) {
  painter.fillRect(rect, content);
  painter.fillRect(QRectF(rect.topLeft(), QSizeF(rect.width(), 26)), QColor(70, 74, 84));
  paintText(painter, rect.adjusted(0, 26, 0, 0), random);
}

void paintBusy(QPainter& painter, const QRectF& rect) {
  QRandomGenerator random(7);
  paintLandscape(painter, rect);
  const double w = rect.width();
  const double h = rect.height();
  paintWindow(painter, {w * 0.02, h * 0.04, w * 0.52, h * 0.62}, QColor(252, 252, 250), random);
  paintWindow(painter, {w * 0.44, h * 0.36, w * 0.50, h * 0.58}, QColor(40, 42, 54), random);
  for (int i = 0; i < 9; ++i) {
    painter.fillRect(QRectF(w * 0.60 + i % 3 * w * 0.12, h * 0.03 + i / 3 * h * 0.10, w * 0.10, h * 0.085),
                     QColor::fromHsv(i * 40, 200, 235));
  }
}

}  // namespace

std::optional<ApplicationIconSource> ThemeIcons::iconSource(std::string_view bundleIdentifier) const {
  ApplicationIconSource source;
  source.themeName = std::string(bundleIdentifier);
  return source;
}

PieMenu sampleMenu(std::size_t itemCount, bool rightToLeft) {
  PieMenu menu;
  for (std::size_t i = 0; i < itemCount; ++i) {
    const Sample& sample = kSamples[i % std::size(kSamples)];
    PieMenuItem item;
    item.title = rightToLeft ? sample.arabic : sample.title;
    item.icon = sample.icon;
    item.color = std::string(kItemColorPalette[i % kItemColorPalette.size()]);
    item.sectorIndex = static_cast<std::int64_t>(i);
    menu.items.push_back(item);
  }
  return menu;
}

SampleRing SampleRing::make(PieMenu menu, HubContents hub) {
  SampleRing ring;
  ring.menu = std::move(menu);
  ring.layout = RingLayout::make(ring.menu, ring.menu.rotationDegrees, ring.menu.items.size(), 2000);
  hub.isMenuEmpty = ring.menu.items.empty();
  hub.heading = hub.isMenuEmpty ? "This menu is empty" : "Everyday things";
  std::vector<std::string> titles;
  for (const PieMenuItem& item : ring.menu.items) titles.push_back(item.title);
  const auto labels = resolvedShortcutLabels(ring.menu.items);
  ring.picture = makeRingPicture(ring.menu, ring.layout, {ring.menu.items, titles, labels, hub});
  return ring;
}

std::vector<double> SampleRing::states(std::optional<std::size_t> highlighted) const {
  std::vector<double> result(picture.layers.size(), 0);
  if (highlighted) result[ring_layers::sector(*highlighted)] = ring_layers::kHighlighted;
  result[ring_layers::figure(menu.items.size())] = ring_layers::figureState(highlighted);
  result[ring_layers::title(menu.items.size())] = ring_layers::titleState(highlighted);
  return result;
}

namespace {

bool set(double& number, const QString& value) {
  bool isNumber = false;
  number = value.toDouble(&isNumber);
  return isNumber;
}
bool set(bool& flag, const QString& value) {
  flag = value == "true";
  return true;
}
bool set(std::string& text, const QString& value) {
  text = value.toStdString();
  return true;
}
/// Its variant or its tint opacity.
bool set(LiquidGlassSettings& glass, const QString& value) {
  const auto variant = liquidGlassVariantFromRawValue(value.toStdString());
  if (!variant) return set(glass.tintOpacity, value);
  glass.variant = *variant;
  return true;
}

}  // namespace

bool setAppearance(PieMenu& menu, const QString& keyAndValue) {
  std::string key = keyAndValue.section('=', 0, 0).toStdString();
  if (key == "variant" || key == "tintOpacity") key = "liquidGlass";
  const QString value = keyAndValue.section('=', 1);
  const auto field = std::find_if(kAppearanceFields.begin(), kAppearanceFields.end(),
                                  [&](const AppearanceField& each) { return each.name == key; });
  return field != kAppearanceFields.end() &&
         std::visit([&](auto member) { return set(menu.*member, value); }, field->member);
}

QImage sampleBackground(const QString& name, QSize size) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(name == "white" ? Qt::white : Qt::black);
  if (name != "busy" && name != "photo") return image;
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  name == "busy" ? paintBusy(painter, image.rect()) : paintLandscape(painter, image.rect());
  return image;
}

}  // namespace rondora
