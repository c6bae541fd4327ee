#include "input/hotkeys/hotkey_hid_tap.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "doubles/allocation_counter.h"
#include "doubles/fake_platform.h"
#include "input/hotkeys/crash_safe_hot_key_switch.h"

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
  void play(std::ifstream stream) {
    std::string event, expected;
    for (std::string line; std::getline(stream, line) || !event.empty();) {
      if (line.starts_with("#")) continue;
      std::istringstream words(line);
      if (!line.starts_with(' ')) {
        EXPECT_EQ(outcome(), std::exchange(expected, "")) << event;
        event = line;
        happen(words);
      }
      for (std::string word; words >> word;) expected += word + " ";
      line.clear();
    }
  }

 private:
  std::string outcome() {
    desktop.time.runUntilIdle();
    for (const std::string& change : std::exchange(taps.switches, {})) happened += change + " ";
    if (const std::string lines = desktop.log.take(); lines != "none") happened += lines + " ";
    return std::exchange(happened, "");
  }

  void happen(std::istringstream& words) {
    static const std::map<std::string, std::uint32_t> kTypes = {{"down", 10}, {"up", 11}, {"flags", 12}, {"type9", 9}};
    std::string event, state;
    std::int64_t keyCode = 0, number = 0;
    char slash = 0;
    words >> event;
    if (event.find('.') != event.npos) {
      desktop.time.advance(std::stod(event) - std::exchange(time_, std::stod(event)));
      words >> event;
    }
    if (event == "secure" || event == "backup") {
      words >> state;
      event == "secure" ? void(taps.isSecure = state == "on") : tap->setCarbonBacksUpCommandTab(state == "on");
    } else if (event == "bind") {
      std::vector<PieMenu> menus;
      while (words >> std::dec >> keyCode >> slash >> std::hex >> number) menus.push_back(menuWith({keyCode, number}));
      words.clear();
      tap->start(menus);
    } else if (event == "disabled") {
      words >> std::hex >> number;
      taps.state->isEnabled = false;
      EXPECT_EQ(taps.state->callback(static_cast<std::uint32_t>(number), 0, 0), TapVerdict::pass);
    } else if (kTypes.contains(event)) {
      words >> std::dec >> keyCode >> std::hex >> number;
      const auto flags = static_cast<std::uint64_t>(number);
      happened += taps.isSwallowed(kTypes.at(event), keyCode, flags) ? "swallow " : "pass ";
    } else if (event == "stop") {
      tap->stop();
    } else if (event == "allow" || event == "forbid") {
      taps.isAllowed = event == "allow";
    } else {
      EXPECT_TRUE(event == "tick" || event.empty()) << event;  // empty at the end of the file
    }
  }

  double time_ = 0;
};

TEST(HotkeyHIDTap, AnswersTheEventsOfItsStories) {
  int count = 0;
  for (const auto& file : std::filesystem::directory_iterator(RONDORA_FIXTURES "/event_tap")) {
    SCOPED_TRACE(file.path().filename());
    TapStory().play(std::ifstream(file.path()));
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

TEST(HotkeyHIDTap, ReportsNothingAfterItsEnd) {
  TapBench bench;
  bench.tap->start({menuWith({48, carbon::kCommand})});
  const auto callback = bench.taps.state->callback;
  EXPECT_EQ(callback(10, 48, event_flags::kCommand), TapVerdict::swallow);
  bench.tap.reset();
  EXPECT_EQ(callback(10, 48, event_flags::kCommand), TapVerdict::pass);
  bench.desktop.time.runUntilIdle();
  EXPECT_EQ(bench.happened, "");
  EXPECT_TRUE(bench.taps.switchedOff.empty() && bench.taps.state == nullptr);
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

TEST(CrashSafeHotKeySwitch, SwitchesOnAfterACrashWhatTheProgramLeftOff) {
  FakeEventTaps taps;
  FakeUserDefaults defaults;
  CrashSafeHotKeySwitch crashed(taps, defaults);
  NativeAppSwitcher(crashed).suspend(true, false);
  CrashSafeHotKeySwitch next(taps, defaults);
  EXPECT_EQ(taps.switches, (std::vector<std::string>{"off1", "on1"}));

  NativeAppSwitcher switcher(next);
  switcher.suspend(true, true);
  switcher.suspend(false, true);
  taps.switches.clear();
  const CrashSafeHotKeySwitch last(taps, defaults);
  EXPECT_EQ(taps.switches, std::vector<std::string>{"on2"});
}

}  // namespace
}  // namespace rondora
