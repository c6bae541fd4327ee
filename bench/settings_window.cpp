// Opening of the settings, from the call over the session bus to the window that stands still, and what they cost:
// memory before, while they are open and after they are closed.

#include <chrono>
#include <thread>

#include "desktop/x_client.h"
#include "support/contenders.h"
#include "support/measurement.h"
#include "support/process_memory.h"
#include "support/stage.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using std::chrono::seconds;

constexpr seconds kLeisure{5};

void reportMemory(const std::string& when, const live::ChildProcess& process) {
  std::this_thread::sleep_for(kLeisure);
  reportValue("settings_window." + when + ".pss", "MiB", megabytes(process, "Pss:"));
}

/// The time includes the start of the program that calls.
Opening open(Stage& stage) {
  std::unique_ptr<live::ChildProcess> call;
  return stage.openBy([&] {
    const Moment now = std::chrono::steady_clock::now();
    call = stage.desktop.start({"gdbus", "call", "--session", "--dest", "io.github.rondora.Rondora", "--object-path",
                                "/io/github/rondora/Rondora", "--method", "io.github.rondora.Rondora.ShowSettings"});
    return now;
  });
}

void close(Stage& stage) {
  constexpr std::chrono::milliseconds kStillness{200};
  stage.client.tap(live::key::escape);
  stage.requireBaseline(kStillness);
}

void measure() {
  const int openings = numberFromEnvironment("RONDORA_BENCH_SETTINGS", 30);
  Stage stage("settings", live::Compositor::picom);
  const auto process = startRondora(stage.desktop, stage.client).process;
  reportMemory("before", *process);
  const Opening first = open(stage);
  reportValue("settings_window.first.visible", "ms", first.firstChange);
  reportValue("settings_window.first.complete", "ms", first.complete);
  reportMemory("open", *process);
  close(stage);
  Samples visible;
  Samples complete;
  for (int i = 0; i < openings; ++i) {
    const Opening opening = open(stage);
    visible.add(opening.firstChange);
    complete.add(opening.complete);
    close(stage);
  }
  report("settings_window.visible", "ms", visible);
  report("settings_window.complete", "ms", complete);
  reportMemory("closed", *process);
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("settings_window", rondora::bench::measure); }
