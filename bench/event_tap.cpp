// What the event tap costs: the time of its callback for an event that matches no binding, and the time from a key
// press to its arrival in the focused application, with and without the program.

#include <chrono>
#include <random>
#include <stdexcept>

#include "desktop/document.h"
#include "desktop/key_logger.h"
#include "desktop/private_desktop.h"
#include "desktop/running_program.h"
#include "input/hotkeys/hotkey_hid_tap.h"
#include "support/frame_watcher.h"
#include "support/measurement.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using namespace live;

constexpr int kCommand = 0x100, kFunction = 0x20000;
/// The program prepares its pictures after the start.
constexpr std::chrono::seconds kSettling{3};

/// Ports of a system on which nothing happens.
class StillSystem final : public EventTaps,
                          public SecureInput,
                          public SymbolicHotKeySwitch,
                          public EventMonitors,
                          public MainQueue,
                          public Log {
 public:
  std::unique_ptr<EventTap> create(std::uint64_t, std::span<const TapKey>, Callback made) override {
    callback = std::move(made);
    return std::make_unique<Tap>();
  }
  std::vector<EventTapRecord> list() const override { return {}; }
  std::int32_t ownProcess() const override { return 0; }
  bool isEnabled() const override { return false; }
  Subscription addLocalMonitor(std::uint32_t, Handler) override { return {}; }
  std::uint64_t currentModifierFlags() const override { return 0; }
  bool available() override { return false; }
  void setEnabled(std::int32_t, bool) override {}
  void async(Work) override { throw std::logic_error("an event matched"); }
  void after(double, Work) override {}
  Subscription workItem(double, Work) override { return {}; }
  Subscription timer(double, double, Work) override { return {}; }
  void write(LogLevel, std::string_view) override {}

  Callback callback;

 private:
  class Tap final : public EventTap {
    Subscription addToRunLoop() override { return {}; }
    void enable(bool) override {}
  };
};

// Each sample contains one reading of the clock.
void measureCallback() {
  constexpr int kEvents = 200'000;
  StillSystem system;
  NativeAppSwitcher switcher(system);
  HotkeyHIDTap tap({system, system, system, switcher, system, system});
  std::vector<PieMenu> menus(10);
  for (std::size_t i = 0; i < menus.size(); ++i) menus[i].hotkey = {static_cast<std::int64_t>(i), kFunction};
  menus[0].hotkey = {kTabKeyCode, kCommand};
  menus[1].hotkey = {kFnKeyCode, 0};
  tap.start(menus);
  Samples samples;
  for (int i = 0; i < kEvents; ++i) {
    const Moment before = std::chrono::steady_clock::now();
    system.callback(i % 2 == 0 ? tap_events::kKeyDown : tap_events::kKeyUp, i % 128, 0);
    samples.add(millisecondsBetween(before, std::chrono::steady_clock::now()) * 1e6);
  }
  report("event_tap.callback (no match)", "ns", samples);
}

Samples delays(XClient& client, KeyLogger& target, int count) {
  constexpr std::uint8_t kKeys[] = {key::a, key::q, key::t, key::n, key::b, key::space, key::tab, key::digit1};
  std::mt19937 random(1);
  Samples samples;
  for (int i = 0; i < count; ++i) {
    const std::uint8_t code = kKeys[random() % std::size(kKeys)];
    target.take();
    const Moment pressed = std::chrono::steady_clock::now();
    client.keyDown(code);
    client.keyUp(code);
    const auto keys = target.takeUntilReleaseOf(code, pressed + kPatience);
    if (keys.size() != 2 || keys.front().code != code) throw std::runtime_error("a key was lost");
    samples.add(millisecondsBetween(pressed, keys.front().received));
  }
  return samples;
}

void measureDelay() {
  const int count = numberFromEnvironment("RONDORA_BENCH_KEYS", 10'000);
  PrivateDesktop desktop({WindowManager::openbox, Compositor::picom, Tray::tint2});
  XClient client(desktop.display());
  KeyLogger target(desktop.display(), "Target");
  if (!waitUntil([&] { return client.title(client.activeWindow()) == "Target"; }))
    throw std::runtime_error("no target");
  delays(client, target, 100);
  report("event_tap.key delay without the program", "ms", delays(client, target, count));
  RunningProgram program(
      desktop, client,
      document({menu("Tab", {48, kCommand}, snippetItems("Tab", 4)), menu("Fn", {40, kFunction}, {snippetItem("Fn")})})
          .dump());
  client.letServerRun(kSettling);
  delays(client, target, 100);
  report("event_tap.key delay with the program", "ms", delays(client, target, count));
}

void measure() {
  measureCallback();
  measureDelay();
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("event_tap", rondora::bench::measure); }
