// From the press of the hotkey to the ring on screen, beside a peer and a bare window under the same server, window
// manager and compositor.

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "support/contenders.h"
#include "support/measurement.h"
#include "support/stage.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using live::Compositor;
using std::chrono::seconds;

void warmUp(Stage& stage, std::initializer_list<std::uint8_t> keys) {
  for (int i = 0; i < 5; ++i) {
    for (const std::uint8_t key : keys) stage.openAndClose(key);
  }
}

/// The latencies of the openings, in turns.
struct Run {
  Samples first, complete, animated, peer, bare;

  void takeTurn(Stage& stage) {
    const Opening own = stage.openAndClose(kOwnKey);
    const Opening other = stage.openAndClose(kPeerKey);
    const Opening moving = stage.openAndClose(kOwnAnimatedKey);
    const Opening limit = stage.openAndClose(kBareKey);
    first.add(own.firstChange);
    complete.add(own.complete);
    peer.add(other.firstChange);
    animated.add(moving.firstChange);
    bare.add(limit.firstChange);
  }
};

void reportRuns(const std::string& name, const std::vector<Run>& runs, Samples Run::*what) {
  std::vector<Samples> samples;
  for (const Run& run : runs) samples.push_back(run.*what);
  report(name, "ms", samples);
}

/// The programs take turns, so that other load on the machine affects all of them. A turn in which a ring takes more
/// than five seconds is left out and counted.
void warmInTurns(int openings, std::size_t runs) {
  Stage stage("warm", Compositor::picom);
  const auto own = startRondora(stage.desktop, stage.client);
  const auto peer = startPeer(stage.desktop, stage.client);
  const auto bare = startBareWindow(stage.desktop, stage.client);
  warmUp(stage, {kOwnKey, kOwnAnimatedKey, kPeerKey, kBareKey});
  std::vector<Run> measured(runs);
  int lost = 0;
  for (Run& run : measured) {
    while (run.first.count() < static_cast<std::size_t>(openings)) {
      try {
        run.takeTurn(stage);
      } catch (const std::runtime_error& failure) {
        if (++lost > openings) throw;
        std::cerr << "left out: " << failure.what() << '\n';
        stage.recover();
      }
    }
  }
  reportRuns("open.warm.picom", measured, &Run::first);
  reportRuns("open.warm.picom.complete", measured, &Run::complete);
  reportRuns("open.warm.picom.animated", measured, &Run::animated);
  reportRuns("open.warm.picom.peer", measured, &Run::peer);
  reportRuns("open.warm.picom.bare", measured, &Run::bare);
  reportValue("open.warm.picom.left_out", "turns", lost);
}

void warmAlone(const std::string& name, int items, Compositor compositor, int openings) {
  Stage stage(name, compositor);
  const auto own = startRondora(stage.desktop, stage.client, {.items = items});
  warmUp(stage, {kOwnKey});
  Samples first, complete;
  for (int i = 0; i < openings; ++i) {
    const Opening opening = stage.openAndClose(kOwnKey);
    first.add(opening.firstChange);
    complete.add(opening.complete);
  }
  report(name, "ms", first);
  report(name + ".complete", "ms", complete);
}

/// No user presses the hotkey at the moment when it is bound.
void firstAfterStart(int starts) {
  constexpr seconds kSettling{2};
  Stage stage("first", Compositor::picom);
  const auto timeFirst = [&](std::uint8_t key) {
    std::this_thread::sleep_for(kSettling);
    return stage.openAndClose(key).firstChange;
  };
  Samples own, peer;
  for (int i = 0; i < starts; ++i) {
    {
      const auto process = startRondora(stage.desktop, stage.client);
      own.add(timeFirst(kOwnKey));
    }
    const auto process = startPeer(stage.desktop, stage.client);
    peer.add(timeFirst(kPeerKey));
  }
  report("open.first.picom", "ms", own);
  report("open.first.picom.peer", "ms", peer);
}

void measure() {
  const int openings = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500);
  const int few = std::max(openings / 5, 10);
  warmInTurns(openings, static_cast<std::size_t>(numberFromEnvironment("RONDORA_BENCH_RUNS", 3)));
  firstAfterStart(std::max(openings / 25, 3));
  warmAlone("open.warm.plain", 8, Compositor::none, few);
  warmAlone("open.warm.picom.12items", 12, Compositor::picom, few);
  warmAlone("open.warm.picom.36items", 36, Compositor::picom, few);
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("open_latency", rondora::bench::measure); }
