// How the latency of an opening grows with each of four sizes, at three values each; the others stay at their default.

#include <string>
#include <vector>

#include "support/contenders.h"
#include "support/measurement.h"
#include "support/stage.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

void timeOpenings(const std::string& name, const OwnSetting& setting, int monitors = 1) {
  constexpr int kWarmUp = 5;
  Stage stage(name, live::Compositor::picom);
  if (monitors > 1) {
    std::vector<live::Area> areas;
    const int width = 1280 / monitors;
    for (int i = 0; i < monitors; ++i) areas.push_back({i * width, 0, width, 800});
    stage.setMonitors(areas);
  }
  const auto own = startRondora(stage.desktop, stage.client, setting);
  Samples complete;
  const int openings = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500) / 5;
  for (int i = 0; i < kWarmUp + openings; ++i) {
    const Opening opening = stage.openAndClose(kOwnKey);
    if (i >= kWarmUp) complete.add(opening.complete);
  }
  report("law." + name, "ms", complete);
}

void measure() {
  for (const int items : {8, 18, 36}) timeOpenings("items." + std::to_string(items), {.items = items});
  for (const int menus : {10, 100, 1000}) timeOpenings("menus." + std::to_string(menus), {.otherMenus = menus});
  for (const int monitors : {1, 2, 4}) timeOpenings("monitors." + std::to_string(monitors), {}, monitors);
  timeOpenings("pixels_per_point.1", {.scale = 1});
  timeOpenings("pixels_per_point.1.5", {.scale = 1.5});
  timeOpenings("pixels_per_point.2", {.scale = 2});
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("scaling", rondora::bench::measure); }
