// Opens the ring repeatedly for a profiler, tools/lib/profile_opening.py. Prints nothing.

#include "support/contenders.h"
#include "support/measurement.h"
#include "support/stage.h"

namespace rondora::bench {
namespace {

void measure() {
  constexpr int kWarmUp = 10;
  Stage stage("profile", live::Compositor::picom);
  const auto own = startRondora(stage.desktop, stage.client);
  const int openings = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500) / 5;
  for (int i = 0; i < kWarmUp + openings; ++i) stage.openAndClose(kOwnKey);
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("opening_for_profile", rondora::bench::measure); }
