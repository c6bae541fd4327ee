#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "doubles/fake_event_taps.h"
#include "doubles/fake_log.h"
#include "doubles/virtual_time.h"
#include "input/hotkeys/hotkey_manager.h"
#include "platform/event_monitors.h"

namespace rondora {

/// A keyboard with the ports that report its keys.
class KeyBench {
 public:
  virtual ~KeyBench() = default;

  virtual HotkeyService& hotkeys() = 0;
  virtual EventMonitors& monitors() = 0;
  virtual EventTaps& eventTaps() = 0;
  virtual VirtualTime& time() = 0;
  /// By virtual key code. All resulting events have been reported when these return.
  virtual void press(std::uint16_t key) = 0;
  virtual void release(std::uint16_t key) = 0;
  /// The held key repeats.
  virtual void repeat(std::uint16_t key) = 0;
  virtual void setOverlay(bool isUp) = 0;
};

/// `events`, word by word: "+K" press, "-K" release, "*K" repeat, "show1" the overlay of menu 1 takes the keyboard,
/// "hide", "register" the hotkeys are registered again, "none" they are unregistered. `outcome`: "p1" and "r1", press
/// and release of menu 1's hotkey; "+K", "*K" and "-K" reach the event monitors. Menu 0 opens with K, menu 1 with
/// Control, Alt and Space, menu 2 with Control and 1, which is also a quick-select label, menu 3 with Command and Tab,
/// menu 4 with Fn and N: the last two through the event tap, whose repeated presses are noted once.
struct KeyStory {
  const char* name;
  const char* events;
  const char* outcome;
};

inline constexpr KeyStory kKeyStories[] = {
    {"ReleaseOfTheOpeningPress", "+K show0 *K -K", "p0 r0"},
    {"EachPhysicalPress", "+C +A +S show1 -S +S *S -C -S", "p1 r1 p1 r1"},
    {"NoHotkey", "show1 +S *S -S", "+S *S -S"},
    {"TriggerThatIsALabel", "+C +1 show2 *1 -1 +1 -1", "p2 r2 +1 -1"},
    {"LabelInAnotherMenu", "show1 +C +1 -1", "p2 r2"},
    {"RepeatsWithoutTheModifiers", "+C +1 show2 -C *1", "p2"},
    {"RegisteredAgainWhileHeld", "+K show0 register *K -K", "p0 r0"},
    {"NoLongerRegistered", "+K show0 none *K -K", "p0 -K"},
    {"OverlayComesAndGoes", "+K show0 hide *K show0 *K -K", "p0 r0"},
    {"ReleasedBeyondTheOverlay", "show1 +K hide -K +K -K", "p0 r0 p0 r0"},
    {"ModifiersUpFirst", "+C +A +S show1 hide -A -C *S -S", "p1 r1"},
    {"TapNotItsBackUp", "+W +T -T +T *T -T -W", "p3 r3 p3 r3"},
    {"TapBeforeTheRing", "+W +T show3 *T -T +T -T +S -S -W", "p3 r3 p3 r3 +S -S"},
    {"TapBeyondTheRing", "+W +T show3 -W hide *T -T", "p3 r3"},
    {"FnChord", "+F +N -N +N show4 -N -F", "p4 r4 p4 r4"},
    {"FnChordOfTheRing", "show1 +F +N *N -F -N +S -S", "p4 r4 +S -S"}};

class KeyContract {
 public:
  explicit KeyContract(KeyBench& bench)
      : bench_(bench),
        manager_(bench.hotkeys(), {bench.eventTaps(), others_, bench.monitors(), switcher_, bench.time(), log_}) {
    manager_.onHotkeyPressed = [this](HotkeyManager::MenuIndices menus, ModifierHold) {
      note("p" + std::to_string(menus.front()));
    };
    manager_.onHotkeyReleased = [this](HotkeyManager::MenuIndices menus) { note("r" + std::to_string(menus.front())); };
    manager_.followRing({[this](HotkeyManager::MenuIndices menus) { return std::ranges::count(menus, shownMenu_) > 0; },
                         [](const KeyEvent& event) { return event.charactersIgnoringModifiers == "1"; }});
    monitor_ = bench.monitors().addLocalMonitor(kKeyDownAndKeyUpMask, [this](const KeyEvent& event) {
      noteMonitored(event);
      return false;
    });
  }

  std::string outcomeOf(const KeyStory& story) {
    registerMenus();
    std::istringstream events(story.events);
    for (std::string event; events >> event;) happen(event);
    return outcome_;
  }

 private:
  void note(const std::string& what) {
    if ((what == "p3" || what == "p4") && outcome_.ends_with(what)) return;
    outcome_ += (outcome_.empty() ? "" : " ") + what;
  }

  // On a slow machine keys may repeat in any story, and more than once.
  void noteMonitored(const KeyEvent& event) {
    if (event.isRepeat && !std::exchange(expectsRepeat_, false)) return;
    for (const auto& [name, code] : kKeys) {
      if (code != event.keyCode) continue;
      note(std::string(event.type == KeyEventType::keyUp ? "-" : event.isRepeat ? "*" : "+") + name);
    }
  }

  void registerMenus() {
    std::vector<PieMenu> menus(5);
    menus[0].hotkey = {kKeys.at('K'), 0};
    menus[1].hotkey = {kKeys.at('S'), carbon::kControl | carbon::kOption};
    menus[2].hotkey = {kKeys.at('1'), carbon::kControl};
    menus[3].hotkey = {kKeys.at('T'), carbon::kCommand};
    menus[4].hotkey = {kKeys.at('N'), carbon::kFunction};
    manager_.registerAll(menus);
  }

  void happen(const std::string& event) {
    if (event == "register") return registerMenus();
    if (event == "none") return manager_.registerAll({});
    if (event == "hide") return bench_.setOverlay(false);
    if (event.starts_with("show")) {
      shownMenu_ = static_cast<std::uint32_t>(event.back() - '0');
      return bench_.setOverlay(true);
    }
    const std::uint16_t key = kKeys.at(event.back());
    if (event.front() == '+') bench_.press(key);
    if (event.front() == '-') bench_.release(key);
    if (event.front() != '*') return;
    expectsRepeat_ = true;
    bench_.repeat(key);
    expectsRepeat_ = false;
  }

  const std::map<char, std::uint16_t> kKeys = {{'K', 40}, {'S', 49}, {'1', 18}, {'C', 59}, {'A', 58},
                                               {'W', 55}, {'T', 48}, {'F', 63}, {'N', 45}};
  KeyBench& bench_;
  FakeLog log_;
  /// Secure input and switch.
  FakeEventTaps others_;
  NativeAppSwitcher switcher_{others_};
  HotkeyManager manager_;
  Subscription monitor_;
  std::uint32_t shownMenu_ = 0;
  bool expectsRepeat_ = false;
  std::string outcome_;
};

}  // namespace rondora
