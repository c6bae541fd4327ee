#include "input/hotkeys/grabbed_key_router.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

/// What happens, word by word: "+K" a key goes down, "-K" up, "?K" up unseen, "*K" it repeats, "show1" the overlay of
/// menu 1 takes the keyboard, "anew" the same hotkeys are registered once more, "none" no longer. What comes of it:
/// "p1" and "r1", press and release of menu 1's hotkey are reported; "+K" and "-K" are passed on to the overlay. Menu 0
/// opens with K, menu 1 with Control, Alt and Space, menu 2 with Control and 1, which is a quick-select label.
struct Row {
  const char* name;
  const char* events;
  const char* outcome;
};

class GrabbedKeyRouterTest : public testing::TestWithParam<Row> {
 protected:
  GrabbedKeyRouterTest() {
    manager.onHotkeyPressed = [this](HotkeyManager::MenuIndices menus) { note("p" + std::to_string(menus.front())); };
    manager.onHotkeyReleased = [this](HotkeyManager::MenuIndices menus) { note("r" + std::to_string(menus.front())); };
    monitors.push_back(desktop.keyboard.addLocalMonitor(kKeyDownAndKeyUpMask,
                                                        [this](const KeyEvent& event) { return router.offer(event); }));
    monitors.push_back(desktop.keyboard.addLocalMonitor(kKeyDownAndKeyUpMask, [this](const KeyEvent& event) {
      for (const auto& [name, code] : kKeys) {
        if (code == event.keyCode) note(std::string(event.type == KeyEventType::keyDown ? "+" : "-") + name);
      }
      return true;
    }));
  }

  void note(const std::string& what) { outcome += (outcome.empty() ? "" : " ") + what; }
  void registerMenus() {
    std::vector<PieMenu> menus(3);
    menus[0].hotkey = {kKeys.at('K'), 0};
    menus[1].hotkey = {kKeys.at('S'), carbon::kControl | carbon::kOption};
    menus[2].hotkey = {kKeys.at('1'), carbon::kControl};
    manager.registerAll(menus);
  }
  void happen(const std::string& event) {
    if (event == "anew") return registerMenus();
    if (event == "none") return manager.registerAll({});
    if (event.starts_with("show")) {
      shownMenu = static_cast<std::uint32_t>(event.back() - '0');
      panel = desktop.overlay.makePanel({}, {{0, 0}, {100, 100}}, sink);
      panel->orderFrontRegardless();
      return panel->makeKey();
    }
    const std::uint16_t key = kKeys.at(event.back());
    if (event.front() == '+') desktop.keyboard.press(key);
    if (event.front() == '-') desktop.keyboard.release(key);
    if (event.front() == '*') desktop.keyboard.repeat(key);
    if (event.front() == '?') desktop.keyboard.releaseUnseen(key);
  }

  struct NoSink final : OverlayPanelSink {
    void pointerMoved(Point) override {}
    void pointerEntered() override {}
    void pointerExited() override {}
    void mouseDown(Point) override {}
    void panelLost() override {}
  };

  const std::map<char, std::uint16_t> kKeys = {{'K', 40}, {'S', 49}, {'1', 18}, {'C', 59}, {'A', 58}};
  FakePlatform desktop;
  NoSink sink;
  std::unique_ptr<OverlayPanel> panel;
  std::uint32_t shownMenu = 0;
  std::string outcome;
  HotkeyManager manager{desktop.keyboard, desktop.log};
  GrabbedKeyRouter router{manager,
                          {[this](HotkeyManager::MenuIndices menus) {
                             return std::find(menus.begin(), menus.end(), shownMenu) != menus.end();
                           },
                           [](const KeyEvent& event) { return event.charactersIgnoringModifiers == "1"; }}};
  std::vector<Subscription> monitors;
};

TEST_P(GrabbedKeyRouterTest, ReportsHotkeysOnceAPressAndPassesOnTheRest) {
  registerMenus();
  std::istringstream events(GetParam().events);
  for (std::string event; events >> event;) happen(event);
  EXPECT_EQ(outcome, GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(Stories, GrabbedKeyRouterTest,
                         testing::Values(Row{"ReleaseOfTheOpeningPress", "+K show0 *K *K -K", "p0 r0"},
                                         Row{"EachPhysicalPress", "+C +A +S show1 -S +S *S -C -S", "p1 r1 p1 r1"},
                                         Row{"WhatIsNoHotkey", "show1 +S *S -S", "+S +S -S"},
                                         Row{"TriggerThatIsALabel", "+C +1 show2 *1 -1 +1", "p2 r2 +1"},
                                         Row{"AnotherMenusTriggerThatIsALabel", "show1 +C +1", "p2"},
                                         Row{"RepeatsAfterTheModifiersWentUp", "+C +1 show2 -C *1", "p2"},
                                         Row{"KeyThatWentUpUnseen", "+C +1 ?1 -C show1 +1 -1", "p2 +1 -1"},
                                         Row{"NewRegistrationMeanwhile", "+K show0 anew *K -K", "p0 r0"},
                                         Row{"KeyThatIsDownAlready", "none +K anew show0 *K", ""},
                                         Row{"HotkeyThatIsGone", "+K show0 none *K -K", "p0 -K"}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace rondora
