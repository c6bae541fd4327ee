// CPU time of the core's hot paths and of reading and writing the document.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "input/gestures/trackpad_frames.h"
#include "model/carbon_modifiers.h"
#include "model/palette.h"
#include "pie/controller/mouse_tracking_ns_view.h"
#include "pie/geometry/ring_layout.h"
#include "pie/labels/quick_select.h"
#include "pie/picture/ring_picture.h"
#include "storage/configuration_json.h"
#include "support/google_benchmark.h"

namespace {

using namespace rondora;

/// The same sequence in every run.
class CountingRandom : public RandomSource {
 public:
  std::uint64_t next() override { return value_ += 0x9E3779B97F4A7C15U; }

 private:
  std::uint64_t value_ = 0;
};

class NoPointer : public Pointer {
 public:
  Point location() const override { return {}; }
  void setCursor(CursorShape) override {}
};

class NoHaptics : public Haptics {
 public:
  bool isAvailable() const override { return false; }
  void perform(HapticPattern) override {}
};

PieMenuItem item(std::size_t index, RandomSource& random) {
  PieMenuItem item;
  item.id = random.uuid();
  item.title = "Item number " + std::to_string(index);
  item.icon = "star.fill";
  item.color = std::string(kItemColorPalette[index % kItemColorPalette.size()]);
  item.action = LaunchApp{"org.example.Application" + std::to_string(index)};
  item.sectorIndex = static_cast<std::int64_t>(index);
  return item;
}

PieMenu menuOf(std::size_t items, RandomSource& random) {
  PieMenu menu;
  menu.id = random.uuid();
  menu.name = "Menu";
  for (std::size_t i = 0; i < items; ++i) menu.items.push_back(item(i, random));
  return menu;
}

std::size_t size(const benchmark::State& state) { return static_cast<std::size_t>(state.range(0)); }

void ringSizes(benchmark::internal::Benchmark* benchmark) { benchmark->Arg(8)->Arg(18)->Arg(36); }

void hitTest(benchmark::State& state) {
  NoHaptics haptics;
  NoPointer pointer;
  const RingLayout layout{.outerRadius = 150, .innerRadius = 60, .sectorCount = size(state)};
  const MouseTrackingNSView view(haptics, pointer, layout, layout.sectorCount);
  std::vector<Point> places;
  for (int i = 0; i < 256; ++i) places.push_back({150 * std::cos(i), 150 * std::sin(i)});
  std::size_t next = 0;
  for (auto _ : state) benchmark::DoNotOptimize(view.hoverSectorIndex(places[next++ & 255]));
}
BENCHMARK(hitTest)->Apply(ringSizes);

void resolveLabels(benchmark::State& state) {
  CountingRandom random;
  const PieMenu menu = menuOf(size(state), random);
  for (auto _ : state) benchmark::DoNotOptimize(ShortcutLabels(resolvedShortcutLabels(menu.items)));
}
BENCHMARK(resolveLabels)->Apply(ringSizes);

/// The key of the last sector, which is found last.
void matchKey(benchmark::State& state) {
  CountingRandom random;
  const ShortcutLabels labels(resolvedShortcutLabels(menuOf(size(state), random).items));
  std::string key = *labels.labels().back();
  for (char& character : key) character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
  for (auto _ : state) benchmark::DoNotOptimize(labels.indexForPressedKey(key));
}
BENCHMARK(matchKey)->Apply(ringSizes);

void matchNoKey(benchmark::State& state) {
  CountingRandom random;
  const ShortcutLabels labels(resolvedShortcutLabels(menuOf(size(state), random).items));
  for (auto _ : state) benchmark::DoNotOptimize(labels.indexForPressedKey("é"));
}
BENCHMARK(matchNoKey)->Apply(ringSizes);

void buildDisplayList(benchmark::State& state) {
  CountingRandom random;
  const PieMenu menu = menuOf(size(state), random);
  const RingLayout layout = RingLayout::make(menu, 0, menu.items.size(), 2000);
  const std::vector<std::string> titles(menu.items.size(), "Some title");
  const auto labels = resolvedShortcutLabels(menu.items);
  for (auto _ : state) benchmark::DoNotOptimize(makeRingPicture(menu, layout, {menu.items, titles, labels}));
}
BENCHMARK(buildDisplayList)->Apply(ringSizes)->Unit(benchmark::kMicrosecond);

/// Argument 0 is the first-run document, others are the number of menus of 36 items.
std::string documentOf(std::size_t menus) {
  CountingRandom random;
  PieConfiguration configuration = PieConfiguration::defaultConfig(random);
  if (menus > 0) configuration.menus.clear();
  for (std::size_t i = 0; i < menus; ++i) configuration.menus.push_back(menuOf(36, random));
  return std::get<std::string>(encodeConfiguration(configuration));
}

void documentSizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(0)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
}

void decode(benchmark::State& state) {
  const std::string text = documentOf(size(state));
  CountingRandom random;
  for (auto _ : state) {
    const auto result = decodeConfiguration(text, random);
    if (const auto* error = std::get_if<CodingError>(&result)) {
      state.SkipWithError(error->description.c_str());
      break;
    }
  }
}
BENCHMARK(decode)->Apply(documentSizes);

/// The JSON library alone, on the same text.
void bareParse(benchmark::State& state) {
  const std::string text = documentOf(size(state));
  for (auto _ : state) benchmark::DoNotOptimize(nlohmann::ordered_json::parse(text));
}
BENCHMARK(bareParse)->Apply(documentSizes);

void encode(benchmark::State& state) {
  CountingRandom random;
  const auto configuration = std::get<PieConfiguration>(decodeConfiguration(documentOf(size(state)), random));
  for (auto _ : state) benchmark::DoNotOptimize(encodeConfiguration(configuration));
}
BENCHMARK(encode)->Arg(0)->Arg(10)->Arg(100)->Unit(benchmark::kMicrosecond);

/// A frame of that many fingers at rest, for the three finger counts.
void trackpadFrame(benchmark::State& state) {
  TrackpadFrames frames([](std::int64_t) {});
  frames.recognize({3, 4, 5});
  std::vector<std::byte> records(size(state) * contact_record::kSize);
  for (std::int32_t finger = 0; finger < static_cast<std::int32_t>(size(state)); ++finger) {
    std::byte* record = &records[static_cast<std::size_t>(finger) * contact_record::kSize];
    const std::int32_t contactState = contact_record::touching;
    std::memcpy(record + contact_record::kIdentifierOffset, &finger, sizeof finger);
    std::memcpy(record + contact_record::kStateOffset, &contactState, sizeof contactState);
  }
  double timestamp = 0;
  for (auto _ : state) {
    frames.contactFrame(1, records.data(), static_cast<std::int32_t>(size(state)), timestamp += 0.008);
  }
}
BENCHMARK(trackpadFrame)->Arg(1)->Arg(3)->Arg(5);

}  // namespace

int main(int argc, char** argv) { return bench::runBenchmarks(argc, argv, "core."); }
