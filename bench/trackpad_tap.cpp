// From the frame in which the last of three fingers lifts to the ring on screen. The trackpad is one of a mock kernel:
// its node is a pipe, and each read of the program first asks the mock, which costs a round trip more than a kernel
// does.

#include <chrono>
#include <stdexcept>
#include <vector>

#include "desktop/wait.h"
#include "support/contenders.h"
#include "support/measurement.h"
#include "support/stage.h"
#include "support/statistics.h"
#include "trackpads/mock_trackpads.h"

namespace rondora::bench {
namespace {

using live::MockTrackpad;

class Hand {
 public:
  explicit Hand(MockTrackpad& trackpad) : trackpad_(trackpad) {}

  /// Taps with three fingers; returns the moment at which they lift.
  Moment tap() {
    constexpr MockTrackpad::Time kDown{100};
    constexpr MockTrackpad::Time kBetween{2000};
    trackpad_.frame(time_, {{.finger = 1, .x = 0.3, .y = 0.5}, {.finger = 2, .x = 0.45}, {.finger = 3, .x = 0.6}});
    const Moment lifted = std::chrono::steady_clock::now();
    using enum MockTrackpad::Change::Kind;
    trackpad_.frame(time_ + kDown,
                    {{.finger = 1, .kind = lifts}, {.finger = 2, .kind = lifts}, {.finger = 3, .kind = lifts}});
    time_ += kBetween;
    return lifted;
  }

 private:
  MockTrackpad& trackpad_;
  MockTrackpad::Time time_{0};
};

void measure() {
  constexpr int kWarmUp = 5;
  const int openings = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500) / 5;
  live::MockTrackpads kernel;
  MockTrackpad& trackpad = kernel.connect(5);
  Hand hand(trackpad);
  Stage stage("trackpad", live::Compositor::picom);
  const auto own = startRondora(stage.desktop, stage.client, {.fingers = 3, .variables = kernel.environment()});
  if (!live::waitUntil([&] { return trackpad.isOpened(); })) throw std::runtime_error("the trackpad is not read");
  Samples tap, key;
  for (int i = -kWarmUp; i < openings; ++i) {
    const Opening byTap = stage.openBy([&] { return hand.tap(); });
    stage.close(live::key::escape);
    const Opening byKey = stage.openAndClose(kOwnKey);
    if (i < 0) continue;
    tap.add(byTap.firstChange);
    key.add(byKey.firstChange);
  }
  report("trackpad.tap.picom", "ms", tap);
  report("trackpad.key.picom", "ms", key);
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("trackpad_tap", rondora::bench::measure); }
