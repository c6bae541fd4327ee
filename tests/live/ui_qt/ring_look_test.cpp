#include <gtest/gtest.h>

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

#include "doubles/fake_devices.h"
#include "model/palette.h"
#include "pie/geometry/sector_geometry.h"
#include "pie/labels/quick_select.h"
#include "pie/picture/icon_plate.h"
#include "pie/picture/ring_picture.h"
#include "pie/picture/sector_contents.h"
#include "pie/picture/title_text.h"
#include "ui/qt/painting/prepared_text.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"

// The ring as pixels.

namespace rondora {
namespace {

constexpr double kScale = 1;

struct Ring {
  explicit Ring(PieMenu shown, bool hasLabels = true, Point visibleSide = {}) : menu(std::move(shown)) {
    layout = RingLayout::make(menu, menu.rotationDegrees, menu.items.size(), 1000);
    std::vector<std::string> titles;  // items without icon would show the initial
    for (const PieMenuItem& item : menu.items) titles.push_back(item.icon.empty() ? "" : "Some title");
    auto labels = resolvedShortcutLabels(menu.items);
    if (!hasLabels) std::fill(labels.begin(), labels.end(), std::nullopt);
    picture = makeRingPicture(menu, layout, {menu.items, titles, labels, {{}, {}, false, visibleSide}});
  }

  PieMenu menu;
  RingLayout layout;
  Picture picture;
};

PieMenu menuOf(std::size_t count, const std::string& icon) {
  PieMenu menu;
  for (std::size_t i = 0; i < count; ++i) {
    PieMenuItem& item = menu.items.emplace_back();
    item.icon = icon;
    item.color = kItemColorPalette[i % kItemColorPalette.size()];
  }
  return menu;
}

struct Pixels {
  Pixels(const Ring& ring, const ApplicationIcons& icons, std::uint32_t beneath, bool isHighlighted)
      : side(static_cast<int>(ring.picture.size.width * kScale)),
        pixels(static_cast<std::size_t>(side) * static_cast<std::size_t>(side)) {
    std::vector<double> states(ring.picture.layers.size(), 0);
    for (std::size_t i = 0; isHighlighted && i < ring.menu.items.size(); ++i) states[ring_layers::sector(i)] = 1;
    QtPictureRasterizer rasterizer(icons);
    paint(ring, rasterizer, states, beneath);
  }
  /// With that title of the hub.
  Pixels(const Ring& ring, QtPictureRasterizer& rasterizer, double title)
      : side(static_cast<int>(ring.picture.size.width * kScale)),
        pixels(static_cast<std::size_t>(side) * static_cast<std::size_t>(side)) {
    std::vector<double> states(ring.picture.layers.size(), 0);
    states[ring_layers::title(ring.menu.items.size())] = title;
    paint(ring, rasterizer, states, 0xFF808080);
  }

  void paint(const Ring& ring, QtPictureRasterizer& rasterizer, const std::vector<double>& states,
             std::uint32_t beneath) {
    std::vector<std::uint32_t> screen(pixels.size(), beneath);
    const auto prepared = rasterizer.prepare(ring.picture, kScale);
    prepared->setSnapshot({screen.data(), side, side, side});
    prepared->paint(states, {kScale, 1, 1, {{0, 0}, ring.picture.size}}, {pixels.data(), side, side, side});
  }

  std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * side + x)]; }
  Color colorAt(int x, int y) const {
    const auto component = [pixel = at(x, y)](unsigned shift) { return (pixel >> shift & 0xFF) / 255.0; };
    return {component(16), component(8), component(0), 1};
  }

  int side;
  std::vector<std::uint32_t> pixels;
};

constexpr Color kBlack{0, 0, 0, 1};

double lightness(Color color) { return contrast(color, kBlack); }

/// Between the pixel that the label's ink changes most and the pixel around it that differs most.
double labelContrast(const Pixels& with, const Pixels& without, const TextCommand& label) {
  const double towardsInk = lightness(label.color) > 10 ? 1 : -1;
  double change = -100;
  Color letter, beside = kBlack;
  const Rect& rect = label.rect;
  for (const bool isSecondPass : {false, true}) {
    for (int y = static_cast<int>(rect.top() * kScale); y < rect.bottom() * kScale; ++y) {
      for (int x = static_cast<int>(rect.left() * kScale); x < rect.right() * kScale; ++x) {
        const Color color = with.colorAt(x, y);
        const double changed = towardsInk * (lightness(color) - lightness(without.colorAt(x, y)));
        if (isSecondPass && towardsInk * (lightness(letter) - lightness(color)) > 0) {
          if (contrast(letter, color) > contrast(letter, beside) || beside == letter) beside = color;
        } else if (!isSecondPass && changed > change) {
          change = changed;
          letter = beside = color;
        }
      }
    }
  }
  return contrast(letter, beside);
}

TEST(RingLookTest, LabelsAreLegibleOnEverySectorColorOverAnyScreen) {
  const FakeApplicationIcons icons;
  for (const auto variant : {LiquidGlassVariant::regular, LiquidGlassVariant::clear}) {
    for (const std::size_t count : {8U, 36U}) {
      PieMenu menu = menuOf(count, {});
      menu.liquidGlass.variant = variant;
      const Ring labelled(menu);
      const Ring bare(menu, false);
      for (const std::uint32_t screen : {0xFF000000U, 0xFFFFFFFFU, 0xFF808080U}) {
        for (const bool isHighlighted : {false, true}) {
          const Pixels with(labelled, icons, screen, isHighlighted);
          const Pixels without(bare, icons, screen, isHighlighted);
          for (std::size_t i = 0; i < 8; ++i) {
            const auto& list = labelled.picture.layers[ring_layers::sector(i)].states[isHighlighted ? 1 : 0];
            EXPECT_GE(labelContrast(with, without, std::get<TextCommand>(list.back())), 3.0)
                << menu.items[i].color << " of " << count << " over " << std::hex << screen << " highlighted "
                << isHighlighted;
          }
        }
      }
    }
  }
}

/// True for a point of that sector which is not in the gap beside it.
bool isInSector(const RingLayout& layout, std::size_t sector, Point offset) {
  const double distance = std::hypot(offset.x, offset.y);
  if (distance < layout.innerRadius || distance > layout.outerRadius) return false;
  if (layout.sectorCount == 1) return true;
  const double width = sectorWidth(layout.sectorCount);
  const double angle = angleFromFirstEdge(offset, layout.rotationDegrees) - width * static_cast<double>(sector);
  const double nearest = std::min({angle, width - angle, std::numbers::pi / 2});
  return nearest > 0 && distance * std::sin(nearest) >= SectorContents::gap(layout) / 4;
}

TEST(RingLookTest, NoIconLeavesItsSector) {
  FakeApplicationIcons icons;
  ApplicationIconSource& square = icons.sources["square"];
  square.pixelWidth = square.pixelHeight = 8;
  square.pixels.assign(64, 0xFFFFFFFF);
  for (std::size_t count = 1; count <= 36; ++count) {
    const Ring ring(menuOf(count, "app:square"), false);
    const Ring bare(menuOf(count, {}), false);
    const Pixels with(ring, icons, 0xFF000000, false);
    const Pixels without(bare, icons, 0xFF000000, false);
    std::vector<int> counted(count, 0);
    for (int y = 0; y < with.side; ++y) {
      for (int x = 0; x < with.side; ++x) {
        if (with.at(x, y) == without.at(x, y)) continue;
        const Point offset = Point{x + 0.5, y + 0.5} * (1 / kScale) - ring.layout.center();
        const std::size_t sector = sectorIndexAt(angleFromFirstEdge(offset, 0), count);
        ++counted[sector];
        ASSERT_TRUE(isInSector(ring.layout, sector, offset)) << count << " items, at " << offset.x << ',' << offset.y;
      }
    }
    const double smallest = std::sqrt(*std::min_element(counted.begin(), counted.end())) / kScale;
    EXPECT_GE(smallest, count <= 8 ? 41 : count <= 12 ? 31 : count <= 24 ? 18 : 12) << count << " items";
  }
}

QStringList linesOf(const std::string& title) {
  TextCommand command{
      withSoftBreaks(title), {{0, 0}, {120, 54}}, 15, FontWeight::semibold, TextAlignment::center, 3, {}};
  command.smallerPointSize = 13;
  command.elision = elisionOf(title);
  return PreparedText(command, 1).lines();
}

bool breaksAtSeams(const QStringList& lines) {
  for (qsizetype i = 1; i < lines.size(); ++i) {
    const QChar before = lines[i - 1].back();
    const QChar after = lines[i].front();
    if (before != '-' && before != '/' && after != '.' && !(before.isLower() && after.isUpper())) return false;
  }
  return lines.size() > 1;
}

TEST(RingLookTest, LongTitlesBreakAtTheirSeamsAndKeepTheEndThatMatters) {
  EXPECT_EQ(linesOf("Web browser"), QStringList{"Web browser"});
  EXPECT_EQ(linesOf("a LibreOffice"), QStringList{"a LibreOffice"}) << "needs no break";
  for (const char* title : {"NetworkManagerEditor", "some-very-long-name.example.org", "https://example.org/path/to"}) {
    EXPECT_TRUE(breaksAtSeams(linesOf(title))) << linesOf(title).join('|').toStdString();
    EXPECT_EQ(linesOf(title).join("").toStdString(), title);
  }
  EXPECT_EQ(linesOf("GIMP Image Manipulation Program").size(), 3);
  const QString file = linesOf("Annual report 2023, final version with all comments.pdf").join(' ');
  EXPECT_TRUE(file.contains(QChar(0x2026)) && file.endsWith(".pdf")) << file.toStdString();
  EXPECT_TRUE(linesOf("A sentence that is far too long for any hub. It goes on").last().endsWith(QChar(0x2026)));
}

TEST(RingLookTest, RingAtAScreenEdgeEqualsANewOneAndBackAgain) {
  const FakeApplicationIcons icons;
  const Ring middle(menuOf(6, "star.fill"));
  const Ring edge(menuOf(6, "star.fill"), true, {1, 0});
  QtPictureRasterizer keeping(icons);
  keeping.prerender(middle.picture, kScale);
  for (const Ring* ring : {&edge, &middle, &edge}) {
    QtPictureRasterizer fresh(icons);
    for (const double title : {0.0, 1.0, 3.0}) {
      const Pixels kept(*ring, keeping, title);
      const Pixels made(*ring, fresh, title);
      const auto differs = [](std::uint32_t a, std::uint32_t b) {
        return std::abs(static_cast<int>(a >> 8 & 0xFF) - static_cast<int>(b >> 8 & 0xFF)) > 2;  // rounding
      };
      int different = 0;
      for (std::size_t i = 0; i < kept.pixels.size(); ++i) different += differs(kept.pixels[i], made.pixels[i]);
      EXPECT_EQ(different, 0) << "title " << title;
    }
  }
}

TEST(RingLookTest, IconsThatVanishOnTheirSectorGetThePlateThatShowsThem) {
  const IconBackgrounds blue{{0.05, 0.2, 0.5, 1}, {0.05, 0.2, 0.5, 1}, {0, 0.5, 1, 1}};
  const IconBackgrounds yellow{{0.45, 0.35, 0.05, 1}, {0.45, 0.35, 0.05, 1}, {1, 0.82, 0.1, 1}};
  const auto plate = [](Color outline, const IconBackgrounds& backgrounds) {
    return plateFor(std::vector<Color>(20, outline), backgrounds).value_or(Color{1, 0, 0, 0});
  };
  EXPECT_EQ(plate({1, 1, 1, 1}, blue).alpha, 0) << "distinct";
  EXPECT_EQ(plate({0.5, 0.75, 1, 1}, yellow).alpha, 0) << "as light, of another colour";
  EXPECT_GT(lightness(plate({0.3, 0.45, 0.75, 1}, blue)), 10) << "blue on blue";
  EXPECT_GT(lightness(plate({0.1, 0.1, 0.1, 1}, blue)), 10) << "black on dark blue";
  EXPECT_LT(lightness(plate({1, 1, 0.9, 1}, yellow)), 3) << "white, on the highlighted sector";
}

}  // namespace
}  // namespace rondora
