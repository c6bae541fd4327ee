// From the release of the trigger over a keystroke item to the key event in the restored application. 150 ms of it are
// the fixed delay before a restored application gets keys.

#include <chrono>
#include <stdexcept>

#include "desktop/document.h"
#include "desktop/key_logger.h"
#include "desktop/private_desktop.h"
#include "desktop/running_program.h"
#include "desktop/wait.h"
#include "support/frame_watcher.h"
#include "support/measurement.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using namespace live;

constexpr int kKeyC = 8;
constexpr std::uint8_t kXKeyC = 54;
constexpr Position kCenter{640, 400};
constexpr int kMiddleOfRing = 115;  // pixels above the centre
constexpr int kWarmUps = 5;

std::chrono::steady_clock::time_point arrivalOf(bool isPress, const std::vector<LoggedKey>& keys) {
  for (const LoggedKey& key : keys) {
    if (key.code == kXKeyC && key.isPress == isPress) return key.received;
  }
  throw std::runtime_error("the key did not arrive");
}

void measure() {
  const int choices = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500);
  PrivateDesktop desktop({WindowManager::openbox, Compositor::picom, Tray::tint2});
  XClient client(desktop.display());
  KeyLogger target(desktop.display(), "Target");
  if (!waitUntil([&] { return client.title(client.activeWindow()) == "Target"; }))
    throw std::runtime_error("no target");
  RunningProgram program(
      desktop, client,
      document({menu("Keys", kControlAltSpace, {keystrokeItem(kKeyC, kControlFlag), snippetItem("other")}, -90)})
          .dump());
  Samples pressed, held;
  for (int i = 0; i < choices + kWarmUps; ++i) {
    client.movePointer(kCenter);
    client.keyDown(key::control);
    client.keyDown(key::alt);
    client.tap(key::space);
    if (!program.waitForRing()) throw std::runtime_error("no ring");
    program.settledPicture();
    client.movePointer({kCenter.x, kCenter.y - kMiddleOfRing});
    target.take();
    const Moment released = std::chrono::steady_clock::now();
    client.keyUp(key::alt);
    client.keyUp(key::control);
    const auto keys = target.takeUntilReleaseOf(kXKeyC, std::chrono::steady_clock::now() + kPatience);
    if (i < kWarmUps) continue;
    pressed.add(millisecondsBetween(released, arrivalOf(true, keys)));
    held.add(millisecondsBetween(arrivalOf(true, keys), arrivalOf(false, keys)));
  }
  report("select_to_key.press (150 ms fixed)", "ms", pressed);
  report("select_to_key.hold (12 ms fixed)", "ms", held);
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("select_to_key", rondora::bench::measure); }
