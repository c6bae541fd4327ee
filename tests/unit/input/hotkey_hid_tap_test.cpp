#include "input/hotkeys/hotkey_hid_tap.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "doubles/allocation_counter.h"
#include "doubles/fake_platform.h"

namespace rondora {
namespace {

PieMenu menuWith(HotkeyConfig hotkey, PieMenuKind kind = PieMenuKind::standard) {
  PieMenu menu;
  menu.hotkey = hotkey;
  menu.kind = kind;
  return menu;
}

/// A tap among the ports that it needs.
struct TapBench {
  TapBench() {
    tap.emplace(HotkeyHIDTap::Ports{taps, taps, desktop.keyboard, switcher, desktop.time, desktop.log});
    tap->onPressed = [this](std::span<const std::uint32_t> menus, ModifierHold) { note("pressed", menus); };
    tap->onReleased = [this](std::span<const std::uint32_t> menus) { note("released", menus); };
  }
  void note(const char* what, std::span<const std::uint32_t> menus) {
    happened += std::string(what);
    for (const std::uint32_t menu : menus) happened += " " + std::to_string(menu);
    happened += " ";
  }

  FakePlatform desktop;
  FakeEventTaps& taps = desktop.keyboard.taps;
  NativeAppSwitcher switcher{taps};
  std::optional<HotkeyHIDTap> tap;
  std::string happened;
};

/// Plays a file of fixtures/event_tap: "TIME EVENT outcome", numbers in hexadecimal except for key codes; lines that
/// begin with a space continue the outcome. "bind KEY/MASK …" starts the tap with menus of these hotkeys.
class TapStory : public TapBench {
 public:
  explicit TapStory(const std::filesystem::path& file) : stream_(file) {}

  void play() {
    std::string event, line;
    while (std::getline(stream_, line)) {
      if (line.empty() || line.starts_with("#")) continue;
      if (line.starts_with(' ')) {
        expect(line);
        continue;
      }
      finish(event);
      event = line;
      happen(line);
    }
    finish(event);
  }

 private:
  void expect(const std::string& text) {
    std::istringstream words(text);
    for (std::string word; words >> word;) expected_ += word + " ";
  }

  void finish(const std::string& event) {
    desktop.time.runUntilIdle();
    std::string outcome = happened;
    for (const std::string& change : taps.switches) outcome += change + " ";
    if (const std::string lines = desktop.log.take(); lines != "none") outcome += lines + " ";
    EXPECT_EQ(outcome, expected_) << event;
    happened.clear();
    taps.switches.clear();
    expected_.clear();
  }

  void happen(const std::string& line) {
    std::istringstream words(line);
    std::string event;
    words >> event;
    if (std::isdigit(event.front()) != 0) {
      desktop.time.advance(std::stod(event) - time_);
      time_ = std::stod(event);
      words >> event;
    }
    act(event, words);
    std::string rest;
    std::getline(words, rest);
    expect(rest);
  }

  void act(const std::string& event, std::istringstream& words) {
    if (event == "bind") return bind(words);
    if (event == "stop") return tap->stop();
    if (event == "allow" || event == "forbid") return void(taps.isAllowed = event == "allow");
    if (event == "tick") return;
    if (event == "disabled") return disable(words);
    if (event != "secure" && event != "backup") return key(event, words);
    std::string state;
    words >> state;
    event == "secure" ? void(taps.isSecure = state == "on") : tap->setCarbonBacksUpCommandTab(state == "on");
  }

  void bind(std::istringstream& words) {
    std::vector<PieMenu> menus;
    std::int64_t keyCode = 0, modifiers = 0;
    for (char slash = 0; words >> std::dec >> keyCode >> slash >> std::hex >> modifiers;) {
      menus.push_back(menuWith({keyCode, modifiers}));
    }
    words.clear();
    tap->start(menus);
  }

  void disable(std::istringstream& words) {
    std::uint32_t type = 0;
    words >> std::hex >> type;
    taps.state->isEnabled = false;
    EXPECT_EQ(taps.state->callback(type, 0, 0), TapVerdict::pass);
  }

  void key(const std::string& event, std::istringstream& words) {
    const std::map<std::string, std::uint32_t> kTypes = {{"down", 10}, {"up", 11}, {"flags", 12}, {"type9", 9}};
    std::int64_t keyCode = 0;
    std::uint64_t flags = 0;
    words >> std::dec >> keyCode >> std::hex >> flags;
    happened += taps.isSwallowed(kTypes.at(event), keyCode, flags) ? "swallow " : "pass ";
  }

  std::ifstream stream_;
  double time_ = 0;
  std::string expected_;
};

TEST(HotkeyHIDTap, AnswersTheEventsOfItsStories) {
  int count = 0;
  for (const auto& file : std::filesystem::directory_iterator(RONDORA_FIXTURES "/event_tap")) {
    SCOPED_TRACE(file.path().filename());
    TapStory(file.path()).play();
    ++count;
  }
  EXPECT_GE(count, 5);
}

TEST(HotkeyHIDTap, BindsWhatTheHotKeyServiceCannotServe) {
  PieMenu disabled = menuWith({63, 0}, PieMenuKind::appCommands);
  disabled.runningAppsMenuEnabled = false;
  TapBench bench;
  bench.tap->start({menuWith({49, carbon::kControl}), menuWith({63, 0}), menuWith({0, carbon::kFunction}), disabled,
                    menuWith({48, carbon::kCommand | carbon::kOption}), menuWith({63, 0}),
                    menuWith({48, carbon::kOption}), menuWith({-1, carbon::kFunction})});

  const std::vector<HotkeyHIDTap::Binding> expected = {{{63, 0}, {1, 5}, true},
                                                       {{0, carbon::kFunction}, {2}, false},
                                                       {{48, carbon::kCommand | carbon::kOption}, {4}, false}};
  EXPECT_EQ(bench.tap->bindings(), expected);
  EXPECT_EQ(bench.taps.state->eventMask, 0x1C00U);
  EXPECT_FALSE(HotkeyHIDTap::requiresAccessibility({menuWith({49, carbon::kControl}), menuWith({-1, 0}), disabled}));
  EXPECT_TRUE(HotkeyHIDTap::requiresAccessibility({menuWith({49, 0}), menuWith({63, 0})}));
}

TEST(HotkeyHIDTap, DeliversIfTheSystemListsALiveTapOfThisProcess) {
  TapBench bench;
  bench.taps.otherTaps = {{1, true, 0x1C00}, {FakeEventTaps::kOwnProcess, true, 0x800}};
  EXPECT_FALSE(bench.tap->deliversKeyEvents()) << "no port";
  bench.tap->start({menuWith({63, 0})});
  EXPECT_TRUE(bench.tap->delivers({63, 0}));
  EXPECT_FALSE(bench.tap->delivers({48, carbon::kCommand})) << "not bound";
  bench.taps.isDeaf = true;
  EXPECT_FALSE(bench.tap->deliversKeyEvents());
}

TEST(HotkeyHIDTap, LeavesNothingBehindAndReportsNothingAfterItsEnd) {
  TapBench bench;
  bench.tap->start({menuWith({48, carbon::kCommand})});
  const auto callback = bench.taps.state->callback;
  EXPECT_EQ(callback(10, 48, event_flags::kCommand), TapVerdict::swallow);
  bench.tap.reset();
  EXPECT_EQ(callback(10, 48, event_flags::kCommand), TapVerdict::pass);
  bench.desktop.time.runUntilIdle();
  EXPECT_EQ(bench.happened, "");
  EXPECT_TRUE(bench.taps.switchedOff.empty());
  EXPECT_EQ(bench.desktop.time.pendingCount(), 0U);
  EXPECT_EQ(bench.taps.state, nullptr);
}

TEST(HotkeyHIDTap, PassesOtherEventsOnWithoutAllocatingOrLogging) {
  TapBench bench;
  bench.tap->start({menuWith({63, 0}), menuWith({48, carbon::kCommand}), menuWith({0, carbon::kFunction})});
  const std::size_t before = allocationCount();
  for (std::int64_t keyCode = 0; keyCode < 128; ++keyCode) {
    for (const std::uint32_t type : {10U, 11U, 12U, 13U}) {
      EXPECT_EQ(bench.taps.offer(type, keyCode, event_flags::kControl), TapVerdict::pass);
    }
  }
  EXPECT_EQ(allocationCount() - before, 0U);
  EXPECT_TRUE(bench.desktop.log.lines.empty());
}

TEST(NativeAppSwitcher, KeepsItsBookWhereTheSystemHasNoSwitch) {
  FakeEventTaps taps;
  taps.hasSwitch = false;
  NativeAppSwitcher switcher(taps);
  switcher.suspend(true, true);
  taps.hasSwitch = true;
  switcher.suspend(false, true);
  EXPECT_EQ(taps.switches, std::vector<std::string>{"on1"});
}

}  // namespace
}  // namespace rondora
