// From a motion of the pointer to the highlight on screen, and how often the opening animation paints.

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string>

#include "support/contenders.h"
#include "support/measurement.h"
#include "support/stage.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using live::Compositor;
using live::Position;
using std::chrono::milliseconds;

constexpr int kSectors = 8;
constexpr double kInSector = 100;  // pixels from the centre
constexpr std::size_t kVisible = 50;
constexpr milliseconds kLimit{2000};
constexpr milliseconds kStillness{30};

Position inSector(int index) {
  const double angle = (index + 0.5) * 2 * std::numbers::pi / kSectors - std::numbers::pi / 2;
  return {Stage::kCenter.x + static_cast<int>(std::lround(kInSector * std::cos(angle))),
          Stage::kCenter.y + static_cast<int>(std::lround(kInSector * std::sin(angle)))};
}

/// Moves around the ring by three sectors at a time, so that the two sectors of a change do not touch.
void timeMoves(const std::string& name, Compositor compositor, int moves) {
  Stage stage(name, compositor);
  const auto own = startRondora(stage.desktop, stage.client);
  stage.openAndClose(kOwnKey);
  stage.open(kOwnKey);
  Samples first, complete;
  for (int i = 0; i < moves; ++i) {
    stage.watcher->keepAsBaseline();
    const Moment moved = stage.watcher->movePointer(inSector(i * 3 % kSectors));
    const auto changed = stage.watcher->firstChange(kVisible, kLimit);
    if (!changed) throw std::runtime_error("no highlight");
    const auto settled = stage.watcher->lastChange(kStillness, kLimit);
    if (!settled) throw std::runtime_error("the ring never stands still");
    if (i < kSectors) continue;  // each sector once to warm up
    first.add(millisecondsBetween(moved, *changed));
    complete.add(millisecondsBetween(moved, *settled));
    stage.savePicture("moved");
  }
  report(name, "ms", first);
  report(name + ".complete", "ms", complete);
}

/// The captures with a change, from the first to the last one of an opening.
void countFrames(int openings) {
  Stage stage("animation", Compositor::picom);
  const auto own = startRondora(stage.desktop, stage.client);
  stage.openAndClose(kOwnAnimatedKey);
  Samples intervals, gaps;
  int lost = 0;
  for (int i = 0; i < openings; ++i) {
    const auto changes = stage.changesWhileOpening(kOwnAnimatedKey, milliseconds(350));
    stage.close(kOwnAnimatedKey);
    if (changes.size() < 2) {  // the machine was too busy
      ++lost;
      continue;
    }
    const double lasted = millisecondsBetween(changes.front(), changes.back());
    intervals.add(lasted / static_cast<double>(changes.size() - 1));
    double longest = 0;
    for (std::size_t frame = 1; frame < changes.size(); ++frame) {
      longest = std::max(longest, millisecondsBetween(changes[frame - 1], changes[frame]));
    }
    gaps.add(longest);
  }
  report("animation.interval", "ms", intervals);
  if (!intervals.isEmpty()) reportValue("animation.rate", "frames/s", 1000 / intervals.percentile(50));
  report("animation.longest_gap", "ms", gaps);
  reportValue("animation.left_out", "openings", lost);
}

void measure() {
  const int moves = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500);
  timeMoves("move.picom", Compositor::picom, moves + kSectors);
  timeMoves("move.plain", Compositor::none, moves + kSectors);
  countFrames(std::max(moves / 5, 10));
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("motion_latency", rondora::bench::measure); }
