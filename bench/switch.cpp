// From the release of the switcher's trigger until the previous application's window is active.

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>

#include "desktop/document.h"
#include "desktop/private_desktop.h"
#include "desktop/running_program.h"
#include "desktop/wait.h"
#include "support/frame_watcher.h"
#include "support/measurement.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using namespace live;

constexpr int kWarmUps = 4;

class SwitchTimer {
 public:
  explicit SwitchTimer(WindowManager manager)
      : desktop_({manager, Compositor::picom, Tray::tint2}), client_(desktop_.display()) {
    for (const char* title : {"Alpha", "Beta"}) desktop_.addApplication(title, title);
    Document switcher = menu("Switcher", kControlAltSpace, {});
    switcher["kind"] = "runningApps";
    program_.emplace(desktop_, client_, document({switcher}).dump());
    alpha_ = open("Alpha");
    beta_ = open("Beta");
  }

  /// Milliseconds.
  double switchTo(const std::string& title) {
    const xcb_window_t target = client_.windowsTitled(title).at(0);
    client_.keyDown(key::control);
    client_.keyDown(key::alt);
    client_.tap(key::space);
    if (!program_->waitForRing()) throw std::runtime_error("no ring");
    const Capture unlit = program_->settledPicture();
    client_.tap(key::space);
    if (!program_->pictureAfterChange(unlit)) throw std::runtime_error("no highlight");
    const Moment released = std::chrono::steady_clock::now();
    client_.keyUp(key::alt);
    const Moment limit = released + kPatience;
    while (client_.activeWindow() != target) {
      if (std::chrono::steady_clock::now() > limit) throw std::runtime_error(title + " did not come");
    }
    const double milliseconds = millisecondsBetween(released, std::chrono::steady_clock::now());
    client_.keyUp(key::control);
    if (!program_->waitForNoRing()) throw std::runtime_error("the ring stays");
    return milliseconds;
  }

 private:
  std::unique_ptr<ChildProcess> open(const std::string& title) {
    auto process = desktop_.start({"xterm", "-name", title, "-class", title, "-T", title, "-e", "cat"});
    if (!waitUntil([&] { return client_.title(client_.activeWindow()) == title; })) throw std::runtime_error(title);
    return process;
  }

  PrivateDesktop desktop_;
  XClient client_;
  std::optional<RunningProgram> program_;
  std::unique_ptr<ChildProcess> alpha_, beta_;
};

void measure() {
  const int switches = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500) / 2;
  for (const auto& [manager, name] : {std::pair{WindowManager::openbox, "switch.openbox"},
                                      {WindowManager::xfwm4, "switch.xfwm4"},
                                      {WindowManager::i3, "switch.i3"}}) {
    SwitchTimer timer(manager);
    Samples samples;
    for (int i = 0; i < switches + kWarmUps; ++i) {
      const double milliseconds = timer.switchTo(i % 2 == 0 ? "Alpha" : "Beta");
      if (i >= kWarmUps) samples.add(milliseconds);
    }
    report(name, "ms", samples);
  }
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("switch", rondora::bench::measure); }
