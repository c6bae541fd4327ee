#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "doubles/fake_devices.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"

namespace rondora {
namespace {

constexpr std::uint32_t kUntouched = 0x12345678;
constexpr double kSide = 200;
constexpr Point kCentre{kSide / 2, kSide / 2};

struct Canvas {
  explicit Canvas(double pixelsPerPoint, std::uint32_t pixel = kUntouched)
      : side(static_cast<int>(kSide * pixelsPerPoint)), pixels(static_cast<std::size_t>(side * side), pixel) {}
  PixelBuffer buffer() { return {pixels.data(), side, side, side}; }
  std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * side + x)]; }
  int side;
  std::vector<std::uint32_t> pixels;
};

/// The largest among the four components.
int difference(std::uint32_t a, std::uint32_t b) {
  int result = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    result = std::max(result, std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
  }
  return result;
}

void expectSame(const Canvas& one, const Canvas& other, int tolerance) {
  for (std::size_t i = 0; i < one.pixels.size(); ++i) {
    ASSERT_LE(difference(one.pixels[i], other.pixels[i]), tolerance) << "pixel " << i;
  }
}

/// Quarter rings that overlap their neighbours' rectangles; in state 1 larger and in another colour.
PictureLayer quarter(int index) {
  const double start = index * std::numbers::pi / 2;
  const auto look = [&](double radius, Color color) {
    FillCommand fill;
    fill.path.moveTo(kCentre);
    fill.path.arc(kCentre, radius, start + 0.1, start + std::numbers::pi / 2 - 0.1);
    fill.path.close();
    fill.paint = RadialGradientPaint{kCentre, radius, {{0, color}, {1, color.withAlpha(0.4)}}};
    StrokeCommand stroke{fill.path, SolidPaint{{1, 1, 1, 0.5}}, 1.5};
    const Point middle = kCentre + Point{std::cos(start + 0.78), std::sin(start + 0.78)} * 50;
    IconCommand icon{IconKind::symbol, "star.fill", squareAround(middle, 12), {1, 1, 1, 1}};
    TextCommand text;
    text.text = index % 2 == 0 ? "Files" : "ملفات";
    text.rect = {{middle.x - 40, middle.y + 10}, {80, 20}};
    return DisplayList{fill, stroke, icon, text};
  };
  return {squareAround(kCentre, 99), {look(80, {0.2, 0.4, 0.9, 1}), look(95, {0.9, 0.3, 0.2, 1})}};
}

Picture ring() {
  Picture picture{{kSide, kSide}, kCentre, {}};
  for (int i = 0; i < 4; ++i) picture.layers.push_back(quarter(i));
  return picture;
}

constexpr PictureView wholeView(double pixelsPerPoint) { return {pixelsPerPoint, 1, 1, {{0, 0}, {kSide, kSide}}}; }

Canvas painted(PreparedPicture& picture, const std::vector<double>& states, const PictureView& view) {
  Canvas canvas(view.pixelsPerPoint);
  picture.paint(states, view, canvas.buffer());
  return canvas;
}

class PictureRasterizerTest : public testing::TestWithParam<double> {
 protected:
  std::unique_ptr<PreparedPicture> prepare(const Picture& picture) { return rasterizer.prepare(picture, GetParam()); }
  Canvas paintedWhole(PreparedPicture& picture, const std::vector<double>& states) const {
    return painted(picture, states, wholeView(GetParam()));
  }
  int pixels(double points) const { return static_cast<int>(points * GetParam()); }

  FakeApplicationIcons applications;
  QtPictureRasterizer rasterizer{applications};
};

TEST_P(PictureRasterizerTest, OnlyTheDirtyRectangleIsPainted) {
  const auto prepared = prepare(ring());
  for (const auto& [scale, opacity] : {std::pair{1.0, 1.0}, std::pair{0.85, 0.5}}) {
    PictureView view = wholeView(GetParam());
    view.scale = scale;
    view.opacity = opacity;
    const Canvas full = painted(*prepared, {0, 1, 0, 0}, view);
    view.dirty = {{60, 20}, {80, 100}};
    const Canvas part = painted(*prepared, {0, 1, 0, 0}, view);
    for (int y = 0; y < part.side; ++y) {
      for (int x = 0; x < part.side; ++x) {
        const bool inside = x >= pixels(60) && x < pixels(140) && y >= pixels(20) && y < pixels(120);
        const int tolerance = inside && scale != 1 ? 2 : 0;
        ASSERT_LE(difference(part.at(x, y), inside ? full.at(x, y) : kUntouched), tolerance)
            << x << "," << y << " at scale " << scale;
      }
    }
  }
}

TEST_P(PictureRasterizerTest, OpenPictureTakesOverIconsThatArrive) {
  int side = 0;
  PictureDecoder::Completion arrive;
  const auto decode = [&](const PictureRequest& request, PictureDecoder::Completion completion) {
    side = request.side;
    arrive = std::move(completion);
    return Subscription();
  };
  QtPictureRasterizer decoding(applications, {.sitePicture = {}, .decode = decode});
  for (const std::string app : {"before the first frame", "after it"}) {
    applications.sources[app].themeName = app;
    Picture picture = ring();
    picture.layers[3].states[0].push_back(IconCommand{IconKind::application, app, squareAround(kCentre, 10), {}});
    const auto prepared = decoding.prepare(picture, GetParam());
    if (app == "after it") paintedWhole(*prepared, {0, 0, 0, 0});
    EXPECT_FALSE(prepared->refreshIcons());
    arrive(
        {PictureResult::Outcome::decoded, side, side, std::string(static_cast<std::size_t>(side * side * 4), '\xFF')});
    EXPECT_TRUE(prepared->refreshIcons());
    EXPECT_EQ(paintedWhole(*prepared, {0, 0, 0, 0}).at(pixels(kCentre.x), pixels(kCentre.y)), 0xFFFFFFFF) << app;
    EXPECT_FALSE(prepared->refreshIcons());
  }
}

TEST_P(PictureRasterizerTest, AppearancePhaseFadesAndScalesAboutTheAnchor) {
  const auto prepared = prepare(ring());
  PictureView view = wholeView(GetParam());
  view.scale = 0.5;
  view.opacity = 0;
  const Canvas faded = painted(*prepared, {0, 0, 0, 0}, view);
  EXPECT_EQ(std::count(faded.pixels.begin(), faded.pixels.end(), 0U), std::ssize(faded.pixels));

  view.opacity = 1;
  const Canvas small = painted(*prepared, {0, 0, 0, 0}, view);
  EXPECT_NE(small.at(pixels(120), pixels(112)), 0U);
  EXPECT_EQ(small.at(pixels(165), pixels(120)), 0U) << "outside of half the radius";
}

TEST_P(PictureRasterizerTest, FractionalStateBlendsItsNeighbours) {
  const auto inState = [&](double state) {
    const auto prepared = prepare(ring());
    paintedWhole(*prepared, {0, 0, 0, 0});
    return paintedWhole(*prepared, {state, 0, 0, 0}).pixels;
  };
  const auto from = inState(0), middle = inState(0.5), to = inState(1);
  for (std::size_t i = 0; i < from.size(); ++i) {
    for (int shift = 0; shift < 32; shift += 8) {
      const auto component = [shift](std::uint32_t pixel) { return static_cast<int>(pixel >> shift & 0xFF); };
      ASSERT_NEAR(component(middle[i]), (component(from[i]) + component(to[i])) / 2, 3) << i;
    }
  }
}

TEST_P(PictureRasterizerTest, GlassShowsTheSnapshotOrAnImitation) {
  BackdropPaint glass;
  glass.imitation = {0, 0, 1, 0.5};
  glass.veil = {1, 0, 0, 0.5};
  const Picture picture{
      {kSide, kSide}, kCentre, {{{{0, 0}, {kSide, kSide}}, {{FillCommand{Path::circle(kCentre, 80), glass}}}}}};
  Canvas screen(GetParam(), 0xFF00FF00);
  for (const bool isTold : {true, false}) {
    const auto prepared = prepare(picture);
    if (isTold) prepared->setSnapshot(screen.buffer());
    const Canvas canvas = paintedWhole(*prepared, {0});
    EXPECT_LE(difference(canvas.at(canvas.side / 2, canvas.side / 2), isTold ? 0xFF808000U : 0xBF800040U), 2);
    EXPECT_EQ(canvas.at(1, 1), 0U);
  }
}

TEST_P(PictureRasterizerTest, CachedPicturesEqualNewOnesOverEverySnapshot) {
  Picture picture = ring();
  BackdropPaint glass;
  glass.imitation = {0.2, 0.2, 0.2, 0.7};
  glass.veil = {0, 0, 0, 0.3};
  FillCommand shadow{Path::circle(kCentre, 98), SolidPaint{{0, 0, 0, 0.3}}};
  FillCommand pane{Path::circle(kCentre, 88.5), glass};
  picture.layers.insert(picture.layers.begin(), {{{0, 0}, {kSide, kSide}}, {{shadow, pane}}});

  rasterizer.prerender(picture, GetParam());
  for (const std::uint32_t beneath : {0xFFFFFFFFU, 0U, 0xFF20C040U}) {
    Canvas screen(GetParam(), beneath);
    const auto on = [&](std::unique_ptr<PreparedPicture> prepared) {
      if (beneath != 0) prepared->setSnapshot(screen.buffer());
      return prepared;
    };
    const auto kept = on(prepare(picture));
    auto second = on(prepare(picture));
    const auto expectLikeNew = [&](PreparedPicture& prepared, const std::vector<double>& states) {
      constexpr int kRounding = 2;  // cached layers are blended once more than layers painted directly
      QtPictureRasterizer other(applications);
      const auto fresh = on(other.prepare(picture, GetParam()));
      expectSame(paintedWhole(prepared, states), paintedWhole(*fresh, states), kRounding);
    };
    SCOPED_TRACE("on " + std::to_string(beneath));
    for (const std::vector<double>& states : {std::vector<double>{0, 0, 0, 0, 0}, {0, 0, 1, 0, 0}, {0, 1, 0, 0, 1}}) {
      ASSERT_NO_FATAL_FAILURE(expectLikeNew(*kept, states));
      ASSERT_NO_FATAL_FAILURE(expectLikeNew(*second, states));
    }
    second.reset();
    ASSERT_NO_FATAL_FAILURE(expectLikeNew(*kept, {0, 0, 0, 0, 0}));
  }
}

TEST_P(PictureRasterizerTest, TextsOfVeryManyStatesAreAllDrawn) {
  PictureLayer titles{{{0, 0}, {kSide, kSide}}, {{}}};
  for (int i = 1; i <= 500; ++i) {
    titles.states.push_back(
        {TextCommand{std::to_string(i), titles.bounds, 40, FontWeight::bold, TextAlignment::center, 1, {1, 1, 1, 1}}});
  }
  const auto all = prepare({{kSide, kSide}, kCentre, {titles}});
  for (const std::size_t shown : {std::size_t{500}, std::size_t{1}}) {
    const auto single = prepare({{kSide, kSide}, kCentre, {{titles.bounds, {titles.states[shown]}}}});
    const Canvas expected = paintedWhole(*single, {0});
    EXPECT_GT(std::count(expected.pixels.begin(), expected.pixels.end(), 0xFFFFFFFFU), 10);
    expectSame(paintedWhole(*all, {static_cast<double>(shown)}), expected, 2);
  }
}

TEST_P(PictureRasterizerTest, SnapshotIsFreedAfterTheShowing) {
  const auto bytesInUse = [] {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
  };
  Canvas screen(GetParam());
  Canvas canvas(GetParam());
  const auto show = [&](double radius) {
    const FillCommand pane{Path::circle(kCentre, radius), BackdropPaint{}};
    const auto prepared =
        rasterizer.prepare({{kSide, kSide}, kCentre, {{{{0, 0}, {kSide, kSide}}, {{pane}}}}}, GetParam());
    prepared->setSnapshot(screen.buffer());
    prepared->paint(std::vector<double>{0}, wholeView(GetParam()), canvas.buffer());
  };
  show(10);
  const std::size_t before = bytesInUse();
  for (int picture = 1; picture <= 8; ++picture) show(10 + picture);
  EXPECT_LT(bytesInUse(), before + 2 * canvas.pixels.size() * sizeof(std::uint32_t));
}

INSTANTIATE_TEST_SUITE_P(Scales, PictureRasterizerTest, testing::Values(1.0, 1.25, 1.5, 2.0));

TextCommand textIn(const Rect& rect, std::string text) {
  TextCommand command;
  command.text = std::move(text);
  command.rect = rect;
  command.pointSize = 14;
  return command;
}

constexpr Rect kLine{{20, 50}, {160, 30}};

class TextTest : public testing::Test {
 protected:
  /// The leftmost and the rightmost column with ink, and how many rows have any.
  struct Ink {
    int left = INT_MAX;
    int right = -1;
    int rows = 0;
  };
  Canvas draw(const TextCommand& command) {
    const Picture picture{{kSide, kSide}, {}, {{{{0, 0}, {kSide, kSide}}, {{command}}}}};
    return painted(*rasterizer.prepare(picture, 1), {0}, wholeView(1));
  }
  Ink paint(const TextCommand& command) {
    const Canvas canvas = draw(command);
    Ink ink;
    for (int y = 0; y < canvas.side; ++y) {
      bool any = false;
      for (int x = 0; x < canvas.side; ++x) {
        if (canvas.at(x, y) == 0) continue;
        any = true;
        ink.left = std::min(ink.left, x);
        ink.right = std::max(ink.right, x);
      }
      ink.rows += any ? 1 : 0;
    }
    return ink;
  }

  FakeApplicationIcons applications;
  QtPictureRasterizer rasterizer{applications};
};

TEST_F(TextTest, LeadingEdgeFollowsTheTextDirection) {
  TextCommand command = textIn(kLine, "Files");
  command.alignment = TextAlignment::leading;
  EXPECT_LT(paint(command).left, 30);
  command.text = "ملفات";
  EXPECT_GT(paint(command).right, 170);
  command.alignment = TextAlignment::trailing;
  EXPECT_LT(paint(command).left, 30);
}

TEST_F(TextTest, LongTextIsWrappedAndElided) {
  TextCommand command = textIn({{50, 50}, {100, 60}}, "Some rather long title that will never ever fit into this");
  const Ink oneLine = paint(command);
  command.maximumLines = 2;
  const Ink twoLines = paint(command);
  for (const Ink& ink : {oneLine, twoLines}) {
    EXPECT_GE(ink.left, 50);
    EXPECT_LE(ink.right, 150);
    EXPECT_GT(ink.right, 130);
  }
  EXPECT_GT(twoLines.rows, oneLine.rows * 3 / 2);
}

TEST_F(TextTest, OmittedTextIsAlwaysMarked) {
  const std::vector<std::string> words = {"ملاحظات", "مع", "Firefox", "120", "نص", "طويل"};
  const auto pixels = [&](double width, std::size_t wordCount, int lines) {
    TextCommand command = textIn({{10, 50}, {width, 60}}, "");
    for (std::size_t i = 0; i < wordCount; ++i) command.text += words[i] + " ";
    command.maximumLines = lines;
    return draw(command).pixels;
  };
  for (double width = 50; width < 130; width += 3) {
    const auto shown = pixels(width, words.size(), 2);
    for (std::size_t count = 1; count < words.size(); ++count) {
      const auto fewer = pixels(width, count, 2);
      if (fewer != pixels(width, count, 9)) continue;  // does not fit, either
      EXPECT_NE(fewer, shown) << width << " wide, as if there were only " << count << " words";
    }
  }
}

TEST_F(TextTest, HostileTextAndSizesAreHarmless) {
  EXPECT_EQ(paint(textIn(kLine, "")).rows, 0);
  EXPECT_GT(paint(textIn(kLine, std::string(4 << 20, 'W'))).rows, 0);
  EXPECT_GT(paint(textIn(kLine, "\xff\xfe\xc0 ok")).rows, 0);
  paint(textIn({{20, 50}, {0, 30}}, "thin"));
  TextCommand big = textIn(kLine, "big");
  for (const double size : {1e300, -1.0, std::nan("")}) {
    big.pointSize = size;
    paint(big);
  }
}

}  // namespace
}  // namespace rondora
