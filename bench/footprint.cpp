// Memory and wake-ups at rest, start-up time and growth of the program; beside a peer.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "desktop/running_program.h"
#include "support/contenders.h"
#include "support/measurement.h"
#include "support/process_memory.h"
#include "support/stage.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using live::ChildProcess;
using live::Compositor;
using std::chrono::seconds;

using Start = Contender (*)(Stage&);

Contender own(Stage& stage) { return startRondora(stage.desktop, stage.client); }
Contender peer(Stage& stage) { return startPeer(stage.desktop, stage.client); }

/// Voluntary context switches so far, by thread.
std::map<std::string, double> voluntarySwitches(const ChildProcess& process) {
  std::map<std::string, double> switches;
  for (const auto& folder : foldersOf(process)) {
    for (const auto& task : std::filesystem::directory_iterator(folder / "task")) {
      switches[task.path().filename()] = numberIn(task.path() / "status", "voluntary_ctxt_switches:");
    }
  }
  return switches;
}

double wakeUpsDuring(const ChildProcess& process, seconds duration) {
  const auto before = voluntarySwitches(process);
  std::this_thread::sleep_for(duration);
  double sum = 0;
  for (const auto& [thread, switches] : voluntarySwitches(process)) {
    const auto former = before.find(thread);
    sum += switches - (former == before.end() ? 0 : former->second);
  }
  return sum;
}

void reportMemory(const std::string& name, const ChildProcess& process) {
  reportValue(name + ".pss", "MiB", megabytes(process, "Pss:"));
  reportValue(name + ".private", "MiB", megabytes(process, "Private_Clean:") + megabytes(process, "Private_Dirty:"));
  reportValue(name + ".rss", "MiB", megabytes(process, "Rss:"));
}

/// Waits for some seconds until idle work is done, then measures a minute of rest.
void atRest(const std::string& name, Start start, std::uint8_t key) {
  constexpr seconds kLeisure{10};
  Stage stage(name, Compositor::picom);
  const auto process = start(stage).process;
  std::this_thread::sleep_for(kLeisure);
  reportMemory(name + ".started", *process);
  stage.openAndClose(key);
  std::this_thread::sleep_for(kLeisure);
  reportMemory(name + ".opened_once", *process);
  reportValue(name + ".wakeups", "1/min", wakeUpsDuring(*process, seconds(60)));
}

/// From the start of the process until its hotkeys are bound, with all files in the disk cache.
void startUp(const std::string& name, Start start, int starts) {
  Stage stage(name, Compositor::picom);
  start(stage);
  Samples times;
  for (int i = 0; i < starts; ++i) times.add(start(stage).startUp);
  report(name, "ms", times);
}

void binarySize(const std::string& name, const std::string& file) {
  reportValue(name, "MiB", static_cast<double>(std::filesystem::file_size(file)) / (1024 * 1024));
}

/// As fast as the ring opens and closes, with some slower ones: a ring that follows another immediately takes no
/// snapshot.
void growth(int openings) {
  constexpr int kWarmUp = 100;
  constexpr int kSlowOpening = 20;  // one opening in this many
  Stage stage("growth", Compositor::picom);
  const auto process = own(stage).process;
  for (int i = 0; i < kWarmUp; ++i) stage.openAndClose(kOwnKey);
  const auto reportAfter = [&](int count) {
    reportMemory("footprint.own.after_" + std::to_string(count) + "_openings", *process);
  };
  reportAfter(kWarmUp);
  for (int i = 0; i < openings; ++i) {
    if (i == openings / 2) reportAfter(i);
    if (i % kSlowOpening == 0) {
      stage.openAndClose(kOwnKey);
    } else {
      stage.openAndCloseQuickly(kOwnKey);
    }
  }
  reportAfter(openings);
}

void measure() {
  constexpr int kStarts = 20;
  startUp("footprint.own.start", own, kStarts);
  startUp("footprint.peer.start", peer, kStarts);
  binarySize("footprint.own.binary", live::RunningProgram::file());
  binarySize("footprint.peer.binary", "/usr/bin/gnome-pie");
  atRest("footprint.own", own, kOwnKey);
  atRest("footprint.peer", peer, kPeerKey);
  growth(numberFromEnvironment("RONDORA_BENCH_MANY_OPENINGS", 10000));
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("footprint", rondora::bench::measure); }
