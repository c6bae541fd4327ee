// CPU time of the ring between trigger and first frame, and of each later frame. The argument is the number of pixels
// per point, in percent.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/palette.h"
#include "model/pie_menu.h"
#include "pie/geometry/ring_layout.h"
#include "pie/labels/quick_select.h"
#include "pie/picture/ring_picture.h"
#include "platform/qt/qt_setup.h"
#include "support/google_benchmark.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"

namespace {

using namespace rondora;

class NoApplicationIcons : public ApplicationIcons {
 public:
  std::optional<ApplicationIconSource> iconSource(std::string_view /*bundleIdentifier*/) const override {
    return std::nullopt;
  }
  std::optional<ApplicationIconSource> windowIconSource(std::string_view /*bundleIdentifier*/) const override {
    return std::nullopt;
  }
};

constexpr const char* kIcons[] = {"safari",     "terminal",  "folder.fill", "gearshape.fill",
                                  "music.note", "note.text", "🍕",           "star.fill"};

PieMenu menuOf(std::size_t count) {
  PieMenu menu;
  for (std::size_t i = 0; i < count; ++i) {
    PieMenuItem item;
    item.title = "Item number " + std::to_string(i);
    item.icon = kIcons[i % std::size(kIcons)];
    item.color = std::string(kItemColorPalette[i % kItemColorPalette.size()]);
    menu.items.push_back(item);
  }
  return menu;
}

struct Ring {
  explicit Ring(std::size_t count = std::size(kIcons)) : menu(menuOf(count)) {}

  Picture makePicture() const { return makeRingPicture(menu, layout, {menu.items, titles, labels}); }
  /// A picture of which no kept one shows the first frame.
  Picture makeNewPicture() {
    menu.rotationDegrees = 1e-6 * ++pictures;
    layout = RingLayout::make(menu, menu.rotationDegrees, menu.items.size(), 2000);
    return makePicture();
  }

  PieMenu menu;
  RingLayout layout = RingLayout::make(menu, 0, menu.items.size(), 2000);
  std::vector<std::string> titles = std::vector<std::string>(menu.items.size(), "Some title");
  std::vector<std::optional<std::string>> labels = resolvedShortcutLabels(menu.items);
  int pictures = 0;
};

struct Canvas {
  Canvas(const Picture& picture, double pixelsPerPoint)
      : side(static_cast<int>(picture.size.width * pixelsPerPoint)),
        view{pixelsPerPoint, 1, 1, {{0, 0}, picture.size}},
        states(picture.layers.size(), 0.0),
        pixels(static_cast<std::size_t>(side * side)) {}

  void paint(PreparedPicture& prepared) { prepared.paint(states, view, {pixels.data(), side, side, side}); }

  int side;
  PictureView view;
  std::vector<double> states;
  std::vector<std::uint32_t> pixels;
};

QtPictureRasterizer& warmRasterizer() {
  static const NoApplicationIcons icons;
  static QtPictureRasterizer rasterizer(icons);
  return rasterizer;
}

double pixelsPerPoint(const benchmark::State& state) { return static_cast<double>(state.range(0)) / 100; }

void scales(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(100)->Arg(200)->Arg(300)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();
}

void makePicture(benchmark::State& state) {
  const Ring ring;
  for (auto _ : state) benchmark::DoNotOptimize(ring.makePicture());
}
BENCHMARK(makePicture)->Unit(benchmark::kMicrosecond);

void prepare(benchmark::State& state) {
  Ring ring;
  for (auto _ : state) benchmark::DoNotOptimize(warmRasterizer().prepare(ring.makeNewPicture(), pixelsPerPoint(state)));
}
BENCHMARK(prepare)->Apply(scales);

void prepareAndPaintFirstFrame(benchmark::State& state) {
  Ring ring;
  Canvas canvas(ring.makePicture(), pixelsPerPoint(state));
  canvas.view.scale = 0.86;
  canvas.view.opacity = 0.5;
  for (auto _ : state) canvas.paint(*warmRasterizer().prepare(ring.makeNewPicture(), pixelsPerPoint(state)));
}
BENCHMARK(prepareAndPaintFirstFrame)->Apply(scales);

/// A screen beneath the glass.
Canvas noise(const Picture& picture, double pixelsPerPoint) {
  Canvas screen(picture, pixelsPerPoint);
  for (std::size_t i = 0; i < screen.pixels.size(); ++i) {
    screen.pixels[i] = 0xFF000000U | static_cast<std::uint32_t>(i * 7919);
  }
  return screen;
}

/// Prepares each picture that `next` returns and paints it over a screen.
template <class Next>
void paintOverScreen(benchmark::State& state, const Picture& any, Next next) {
  Canvas canvas(any, pixelsPerPoint(state));
  Canvas screen = noise(any, pixelsPerPoint(state));
  for (auto _ : state) {
    const auto prepared = warmRasterizer().prepare(next(), pixelsPerPoint(state));
    prepared->setSnapshot({screen.pixels.data(), screen.side, screen.side, screen.side});
    canvas.paint(*prepared);
  }
}

void prepareAndPaintFirstGlass(benchmark::State& state) {
  Ring ring;
  paintOverScreen(state, ring.makePicture(), [&] { return ring.makeNewPicture(); });
}
BENCHMARK(prepareAndPaintFirstGlass)->Apply(scales);

/// The same for a number of items at one pixel per point.
void openManyItems(benchmark::State& state) {
  Ring ring(static_cast<std::size_t>(state.range(1)));
  paintOverScreen(state, ring.makePicture(), [&] { return ring.makeNewPicture(); });
}
BENCHMARK(openManyItems)
    ->ArgsProduct({{100}, {36, 100, 360, 1000, 2500, 20000}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

/// A ring of eight that was pre-rendered while idle, the usual case.
void prepareAndPaintKeptGlass(benchmark::State& state) {
  const Ring ring;
  warmRasterizer().prerender(ring.makePicture(), pixelsPerPoint(state));
  paintOverScreen(state, ring.makePicture(), [&] { return ring.makePicture(); });
}
BENCHMARK(prepareAndPaintKeptGlass)->Apply(scales);

void openingFrame(benchmark::State& state) {
  const Ring ring;
  const Picture picture = ring.makePicture();
  const auto prepared = warmRasterizer().prepare(picture, pixelsPerPoint(state));
  Canvas canvas(picture, pixelsPerPoint(state));
  canvas.view.scale = 0.93;
  canvas.view.opacity = 0.8;
  for (auto _ : state) canvas.paint(*prepared);
}
BENCHMARK(openingFrame)->Apply(scales);

void highlightChange(benchmark::State& state) {
  const Ring ring;
  const Picture picture = ring.makePicture();
  const auto prepared = warmRasterizer().prepare(picture, pixelsPerPoint(state));
  Canvas canvas(picture, pixelsPerPoint(state));
  canvas.paint(*prepared);
  std::size_t index = 0;
  for (auto _ : state) {
    canvas.states[ring_layers::sector(index)] = ring_layers::kNormal;
    index = (index + 1) % ring.menu.items.size();
    canvas.states[ring_layers::sector(index)] = ring_layers::kHighlighted;
    canvas.states[ring_layers::figure(ring.menu.items.size())] = ring_layers::figureState(index);
    canvas.states[ring_layers::title(ring.menu.items.size())] = ring_layers::titleState(index);
    canvas.paint(*prepared);
  }
}
BENCHMARK(highlightChange)->Apply(scales);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  prepareQt();
  QApplication application(argc, argv);
  configureQt(application, "rondora");
  warmRasterizer().warmUp();
  return bench::runBenchmarks(argc, argv, "drawing.");
}
