#include "pie/picture/ring_picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <random>
#include <string_view>

#include "model/appearance_fields.h"
#include "model/palette.h"
#include "pie/controller/opening_animation.h"
#include "pie/geometry/pie_sector_shape.h"
#include "pie/geometry/sector_geometry.h"
#include "pie/labels/quick_select.h"
#include "pie/picture/ring_glass.h"
#include "ui/painting/frosted_glass.h"

namespace rondora {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Ring {
  PieMenu menu;
  RingLayout layout;
  Picture picture;
};

/// Adds the items that the menu lacks.
Ring ringOf(std::size_t count, PieMenu menu = {}, const HubContents& hub = {}) {
  for (std::size_t i = menu.items.size(); i < count; ++i) {
    PieMenuItem& item = menu.items.emplace_back();
    item.title = "Item " + std::to_string(i);
    item.icon = "star.fill";
  }
  Ring ring;
  std::vector<std::string> titles;
  for (const PieMenuItem& item : menu.items) titles.push_back(item.title);
  ring.menu = std::move(menu);
  ring.layout = RingLayout::make(ring.menu, ring.menu.rotationDegrees, count, 400);
  const auto labels = resolvedShortcutLabels(ring.menu.items);
  ring.picture = makeRingPicture(ring.menu, ring.layout, {ring.menu.items, titles, labels, hub});
  return ring;
}

std::vector<Point> outline(const Path& path) {
  std::vector<Point> points;
  for (const PathElement& element : path.elements) {
    if (element.verb != PathVerb::close) points.push_back(element.end);
  }
  return points;
}

bool encloses(const Rect& outer, Point p) {
  return p.x >= outer.left() - 1e-6 && p.x <= outer.right() + 1e-6 && p.y >= outer.top() - 1e-6 &&
         p.y <= outer.bottom() + 1e-6;
}

void expectLayersInside(const Picture& picture) {
  const Rect whole{{0, 0}, picture.size};
  for (const PictureLayer& layer : picture.layers) {
    ASSERT_TRUE(encloses(whole, layer.bounds.origin));
    ASSERT_TRUE(encloses(whole, {layer.bounds.right(), layer.bounds.bottom()}));
  }
}

template <class Command>
const Command* find(const DisplayList& list) {
  for (const DisplayCommand& command : list) {
    if (const auto* found = std::get_if<Command>(&command)) return found;
  }
  return nullptr;
}

struct Disc {
  Point center;
  double radius = 0;
};

Disc discIn(const Rect& square) { return {square.center(), square.size.width / 2}; }
Disc discAround(const Rect& square) { return {square.center(), square.size.width / std::numbers::sqrt2}; }

/// How far a disc reaches into a neighbour, the hub, or beyond the rim; below zero when it lies inside its sector.
double overreach(const RingLayout& layout, std::size_t sector, const Disc& disc) {
  const Point offset = disc.center - layout.center();
  const double distance = std::hypot(offset.x, offset.y);
  const double angle = angleFromFirstEdge(offset, layout.rotationDegrees) -
                       sectorWidth(layout.sectorCount) * static_cast<double>(sector);
  const double toStart = std::sin(std::min(angle, std::numbers::pi / 2)) * distance;
  const double toEnd = std::sin(std::min(sectorWidth(layout.sectorCount) - angle, std::numbers::pi / 2)) * distance;
  const double toEdges = layout.sectorCount > 1 ? std::min(toStart, toEnd) : 1e9;
  return disc.radius - std::min({toEdges, distance - layout.innerRadius, layout.outerRadius - distance});
}

TEST(PathTest, ReversingTwiceRestoresEachSubpath) {
  const Path ring = sectorShape(ringOf(1).layout, 0, 0, 0).path();
  EXPECT_EQ(ring.reversed().reversed(), ring);
}

/// Checks icon and label of one sector in one state.
void expectComposed(const Ring& ring, std::size_t sector, const DisplayList& list) {
  const auto* icon = find<IconCommand>(list);
  const auto* label = find<TextCommand>(list);
  ASSERT_TRUE(icon && label);
  const Disc square = discAround(icon->rect);
  const Disc disc = discIn(label->rect);
  EXPECT_LT(overreach(ring.layout, sector, square), 0) << "icon " << sector;
  EXPECT_LT(overreach(ring.layout, sector, disc), 0) << "label " << sector;
  const Point apart = square.center - disc.center;
  EXPECT_GE(std::hypot(apart.x, apart.y), square.radius + disc.radius - 1e-6) << "sector " << sector;
  const Point offset = square.center - ring.layout.center();
  EXPECT_GE(std::hypot(offset.x, offset.y), ring.layout.innerRadius + ring.layout.ringWidth() / 2 - 1e-6);
}

TEST(RingPictureTest, ContentsStayInsideTheirSectorsAndApart) {
  for (std::size_t count = 1; count <= 36; ++count) {
    for (const double rotation : {0.0, 22.5, -100.0}) {
      SCOPED_TRACE(count);
      PieMenu menu;
      menu.rotationDegrees = rotation;
      const Ring ring = ringOf(count, menu);
      for (std::size_t i = 0; i < count; ++i) {
        for (const DisplayList& list : ring.picture.layers[ring_layers::sector(i)].states)
          expectComposed(ring, i, list);
      }
    }
  }
}

TEST(RingPictureTest, IconHasTheMenusSizeAndPlaceOrShowsAnInitial) {
  PieMenu menu;
  menu.iconSize = 30;
  menu.iconDistance = 0.4;
  menu.items.resize(1);
  menu.items[0].title = "Über";
  const Ring ring = ringOf(6, menu);
  const auto* icon = find<IconCommand>(ring.picture.layers[ring_layers::sector(1)].states[0]);
  ASSERT_NE(icon, nullptr);
  EXPECT_DOUBLE_EQ(icon->rect.size.width, 30);
  EXPECT_NEAR(icon->rect.center().x - ring.layout.center().x, 76 + 0.4 * 74, 1e-6);
  EXPECT_EQ(std::get<TextCommand>(ring.picture.layers[ring_layers::sector(0)].states[0].back()).text, "Ü");
}

TEST(RingPictureTest, DrawingsStayInTheirLayersAndLayersInThePicture) {
  for (const std::size_t count : {0u, 1u, 2u, 6u, 36u, 400u, 5000u}) {
    const Ring ring = ringOf(count);
    ASSERT_EQ(ring.picture.layers.size(), count < 400 ? count + 3 : 4);
    ASSERT_LT(ring.picture.layers[ring_layers::kBackdrop].states[0].size(), 1100U);
    expectLayersInside(ring.picture);
    for (const PictureLayer& layer : ring.picture.layers) {
      for (const DisplayList& list : layer.states) {
        for (const DisplayCommand& command : list) {
          const auto* fill = std::get_if<FillCommand>(&command);
          if (fill == nullptr) continue;
          const Path& drawn = fill->clip.elements.empty() ? fill->path : fill->clip;
          for (const Point p : outline(drawn)) ASSERT_TRUE(encloses(layer.bounds, p)) << count;
        }
      }
    }
  }
}

TEST(RingPictureTest, HighlightedTitleFitsIntoTheHub) {
  const Ring ring = ringOf(3);
  const PictureLayer& title = ring.picture.layers[ring_layers::title(3)];
  EXPECT_TRUE(title.states.at(static_cast<std::size_t>(ring_layers::titleState(std::nullopt))).empty());
  const auto* text = find<TextCommand>(title.states.at(static_cast<std::size_t>(ring_layers::titleState(2))));
  EXPECT_EQ(text->text, "Item 2");
  EXPECT_EQ(text->disc->center, ring.layout.center());
  EXPECT_LT(text->disc->radius, ring.layout.hubRadius());
}

TEST(RingPictureTest, NoteIsBeneathItsTitleInAWholeHub) {
  const Ring ring = ringOf(2);
  for (const Point side : {Point{}, Point{1, 0}}) {
    const RingContents contents{ring.menu.items, {"a", "b"}, {}, {{}, {}, false, side}, {}, {"", "Ctrl+B"}};
    const Picture picture = makeRingPicture(ring.menu, ring.layout, contents);
    const auto& states = picture.layers[ring_layers::title(2)].states;
    EXPECT_EQ(std::get<TextCommand>(states[1].back()).text, "a");
    const auto& last = std::get<TextCommand>(states[2].back());
    EXPECT_EQ(last.text, side == Point{} ? "Ctrl+B" : "b");
    if (side != Point{}) continue;
    EXPECT_GE(last.rect.top(), std::get<TextCommand>(*(states[2].end() - 2)).rect.bottom());
  }
}

/// What the hub shows while nothing is highlighted.
DisplayList restingHub(std::size_t count, const PieMenu& menu, const HubContents& hub) {
  const Picture picture = ringOf(count, menu, hub).picture;
  DisplayList list = picture.layers[ring_layers::figure(count)].states[0];
  const DisplayList& title = picture.layers[ring_layers::title(count)].states[0];
  list.insert(list.end(), title.begin(), title.end());
  return list;
}

TEST(RingPictureTest, HubShowsFigureOrMenusNameOrThatItIsEmpty) {
  PieMenu menu;
  const HubContents named{.application = {}, .heading = "Tools"};
  const HubContents empty{.application = {}, .heading = "Empty", .isMenuEmpty = true};
  const DisplayList cat = restingHub(2, menu, named);
  EXPECT_NE(find<FillCommand>(cat), nullptr);
  EXPECT_EQ(find<TextCommand>(cat), nullptr);
  const DisplayList hungryCat = restingHub(0, menu, empty);
  EXPECT_NE(find<FillCommand>(hungryCat), nullptr);
  EXPECT_EQ(find<TextCommand>(hungryCat)->text, "Empty");
  menu.pawDecorationEnabled = false;
  ASSERT_EQ(restingHub(2, menu, named).size(), 1u);
  EXPECT_EQ(find<TextCommand>(restingHub(2, menu, named))->text, "Tools");
  EXPECT_EQ(find<TextCommand>(restingHub(0, menu, empty))->text, "Empty");
  menu.centerAppIconScale = 0.5;
  const DisplayList icon = restingHub(2, menu, {.application = "org.example.Editor", .heading = "Tools"});
  ASSERT_EQ(icon.size(), 1u);
  EXPECT_EQ(find<IconCommand>(icon)->name, "org.example.Editor");
  EXPECT_DOUBLE_EQ(find<IconCommand>(icon)->rect.size.width, ringOf(2, menu).layout.hubRadius());
}

TEST(RingPictureTest, TitleStaysInTheVisiblePartOfTheHub) {
  for (const Point side : {Point{1, 0}, Point{-1, 0}, Point{0, 1}, Point{-1, -1}}) {
    const Ring ring = ringOf(2, {}, {.application = {}, .heading = {}, .visibleSide = side});
    EXPECT_TRUE(ring.picture.layers[ring_layers::figure(2)].states[1].empty()) << "a figure in the way";
    const Rect title = find<TextCommand>(ring.picture.layers[ring_layers::title(2)].states[1])->rect;
    const Point center = ring.layout.center();
    EXPECT_GE(std::min((title.left() - center.x) * side.x, (title.top() - center.y) * side.y) + 1e-6,
              std::min({0.0, -title.size.width * side.x, -title.size.height * side.y}) + 1e-6);
    EXPECT_GE(std::min(title.size.width, title.size.height), 0.75 * ring.layout.hubRadius());
  }
}

template <class T>
void change(T& value, double factor) {
  if constexpr (std::is_same_v<T, double>) {
    value = value == 0 ? 10 * factor : value * factor;
  } else if constexpr (std::is_same_v<T, LiquidGlassSettings>) {
    value = factor < 1 ? T{.variant = LiquidGlassVariant::clear} : T{.tintOpacity = 0.2};
  } else if constexpr (std::is_same_v<T, bool>) {
    value = !value;
  } else {
    value = "#00FF00";
  }
}

TEST(RingPictureTest, EveryAppearanceFieldChangesTheRing) {
  for (const AppearanceField& field : kAppearanceFields) {
    if (field.name == "animationDuration") continue;
    HubContents hub;
    if (field.name == "centerAppIconScale") hub.application = "editor";
    for (const double factor : {0.85, 1.15}) {
      PieMenu menu;
      std::visit([&](auto member) { change(menu.*member, factor); }, field.member);
      EXPECT_NE(ringOf(6, menu, hub).picture, ringOf(6, {}, hub).picture) << field.name << " times " << factor;
    }
  }
}

/// The colour of a screen seen through the glass.
Color throughGlass(const BackdropPaint& paint, std::uint32_t screen) {
  std::uint32_t pixel = 0xFF000000U | screen;
  std::uint32_t seen = 0;
  frost({&pixel, 1, 1, 1}, {0, paint.saturation, paint.brightest, paint.veil}, {&seen, 1, 1, 1});
  return {(seen >> 16 & 0xFF) / 255.0, (seen >> 8 & 0xFF) / 255.0, (seen & 0xFF) / 255.0, 1};
}

/// The colour of a gradient half-way between hub and rim.
Color middleOf(const RadialGradientPaint& paint) { return mix(paint.stops[1].color, paint.stops[2].color, 0.5); }

TEST(RingPictureTest, IconsAndTitlesAreLegibleOverAnyScreen) {
  for (const auto variant : {LiquidGlassVariant::regular, LiquidGlassVariant::clear}) {
    for (const double tint : {0.0, 0.07, 0.5, 1.0}) {
      for (const std::string_view itemColor : kItemColorPalette) {
        PieMenu menu;
        menu.liquidGlass = {variant, tint};
        menu.items.resize(1);
        menu.items[0].icon = "star.fill";
        menu.items[0].color = std::string(itemColor);
        const Picture picture = ringOf(1, menu).picture;
        const auto& glass = std::get<BackdropPaint>(std::get<FillCommand>(picture.layers[0].states[0][1]).paint);
        const auto& states = picture.layers[ring_layers::sector(0)].states;
        for (const std::uint32_t screen : {0x000000U, 0xFFFFFFU, 0xFFFF00U, 0x00FFFFU, 0xFF0000U, 0x808080U}) {
          const Color beneath = throughGlass(glass, screen);
          EXPECT_GT(contrast({1, 1, 1, 1}, beneath), 4.5) << "title over " << screen;
          for (const DisplayList& list : states) {
            const Color body = middleOf(std::get<RadialGradientPaint>(find<FillCommand>(list)->paint));
            EXPECT_GT(contrast(find<IconCommand>(list)->tint, layered(beneath, body)), 3)
                << itemColor << " tinted " << tint << " over " << screen;
          }
        }
      }
    }
  }
}

TEST(PieSectorShapeTest, GapsAreEquallyWideFromHubToRim) {
  for (const std::size_t count : {2u, 3u, 6u, 12u, 36u}) {
    PieSectorShape shape;
    shape.innerRadius = 76;
    shape.outerRadius = 150;
    shape.startAngle = startAngle(0, count, 0);
    shape.endAngle = endAngle(0, count, 0);
    shape.gap = 4;
    shape.outerCornerRadius = 13;
    shape.innerCornerRadius = 9;
    double nearest = 1e9;
    for (const Point p : outline(shape.path())) {
      const double distance = std::hypot(p.x, p.y);
      ASSERT_GE(distance, shape.innerRadius - 1e-6);
      ASSERT_LE(distance, shape.outerRadius + 1e-6);
      // The leading edge of sector 0 runs straight up from the centre.
      if (p.y < 0) nearest = std::min(nearest, p.x);
    }
    EXPECT_NEAR(nearest, shape.halfGap(), 1e-6) << count;
  }
}

TEST(RingPictureTest, HostileSizesStayInBounds) {
  constexpr double kHostile[] = {-1e300, -5, 0, 1e-300, 1, 76, 1e300, kInfinity, kNaN};
  std::mt19937 random(5);
  for (int round = 0; round < 500; ++round) {
    const auto number = [&] { return kHostile[random() % std::size(kHostile)]; };
    PieMenu menu;
    for (const AppearanceField& field : kAppearanceFields) {
      if (const auto* member = std::get_if<double PieMenu::*>(&field.member)) menu.*(*member) = number();
    }
    menu.liquidGlass.tintOpacity = number();
    constexpr std::size_t kCounts[] = {0, 1, 6, 36, 500};
    const Ring ring = ringOf(kCounts[random() % std::size(kCounts)], menu);
    ASSERT_GT(ring.layout.innerRadius, 0) << round;
    ASSERT_GT(ring.layout.ringWidth(), 0) << round;
    ASSERT_LE(ring.layout.outerRadius, 400 + 1e-9) << round;
    ASSERT_LE(ring.picture.size.width, 1010) << round;
    ASSERT_NO_FATAL_FAILURE(expectLayersInside(ring.picture)) << round;
  }
}

TEST(OpeningAnimationTest, AlwaysEnds) {
  const auto isOver = [](double duration, double elapsed) {
    return OpeningAnimation{appearanceField<&PieMenu::animationDuration>().toDraw(duration)}.isOver(elapsed);
  };
  for (const double none : {0.0, -1.0}) EXPECT_TRUE(isOver(none, 0)) << none;
  for (const double bounded : {1e300, kInfinity, kNaN}) EXPECT_TRUE(isOver(bounded, 2)) << bounded;
  EXPECT_TRUE(isOver(0.2, kNaN));
}

}  // namespace
}  // namespace rondora
