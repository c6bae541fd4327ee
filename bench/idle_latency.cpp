// The opening after a minute of rest and the one after it, for both programs; and the effect of the same rest on memory
// that was just used.

#include <chrono>
#include <cstdint>
#include <numeric>
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

constexpr std::chrono::seconds kRest{60};

/// About as much memory as an opening uses.
class UsedMemory {
 public:
  double millisecondsToRead() {
    const Moment begun = std::chrono::steady_clock::now();
    sum_ += std::accumulate(words_.begin(), words_.end(), std::uint64_t{0});
    const double duration = millisecondsBetween(begun, std::chrono::steady_clock::now());
    if (sum_ % words_.size() != 0) throw std::runtime_error("the memory was not read");
    return duration;
  }

 private:
  std::vector<std::uint64_t> words_ = std::vector<std::uint64_t>(std::size_t{4} << 17, 1);  // 4 MiB
  std::uint64_t sum_ = 0;
};

/// Rests, and opens twice.
struct Pair {
  Samples after, next;

  void take(Stage& stage, std::uint8_t key) {
    std::this_thread::sleep_for(kRest);
    after.add(stage.openAndClose(key).firstChange);
    next.add(stage.openAndClose(key).firstChange);
  }
  void report(const std::string& name) const {
    bench::report(name, "ms", after);
    bench::report(name + ".next", "ms", next);
  }
};

void measure() {
  const int openings = numberFromEnvironment("RONDORA_BENCH_IDLE_OPENINGS", 10);
  Pair own, peer, memory;
  {
    Stage stage("idle", live::Compositor::picom);
    const auto ours = startRondora(stage.desktop, stage.client);
    const auto theirs = startPeer(stage.desktop, stage.client);
    for (int i = 0; i < 5; ++i) {
      for (const std::uint8_t key : {kOwnKey, kPeerKey}) stage.openAndClose(key);
    }
    for (int i = 0; i < openings; ++i) {
      own.take(stage, kOwnKey);
      peer.take(stage, kPeerKey);
    }
  }
  UsedMemory used;
  used.millisecondsToRead();
  for (int i = 0; i < openings / 3 + 1; ++i) {
    std::this_thread::sleep_for(kRest);
    memory.after.add(used.millisecondsToRead());
    memory.next.add(used.millisecondsToRead());
  }
  own.report("open.idle60s.picom");
  peer.report("open.idle60s.picom.peer");
  memory.report("open.idle60s.reading 4 MiB");
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("idle_latency", rondora::bench::measure); }
