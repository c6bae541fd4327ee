#include "input/grabbed_key_router.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Key = FakeKeyboard::Key;

constexpr std::uint16_t kKKey = 40;
constexpr std::uint16_t kOneKey = 18;

/// Menu 0 opens with K, menu 1 with Ctrl+Alt+Space, menu 2 with Ctrl+1; "1" is a quick-select label.
class GrabbedKeyRouterTest : public testing::Test {
 protected:
  GrabbedKeyRouterTest() {
    manager.onHotkeyPressed = [this](HotkeyManager::MenuIndices indices) {
      reports.push_back("press " + std::to_string(indices.front()));
    };
    manager.onHotkeyReleased = [this](HotkeyManager::MenuIndices indices) {
      reports.push_back("release " + std::to_string(indices.front()));
    };
    registerMenus();
    monitors.push_back(desktop.keyboard.addLocalMonitor(kKeyDownAndKeyUpMask,
                                                        [this](const KeyEvent& event) { return router.offer(event); }));
    monitors.push_back(desktop.keyboard.addLocalMonitor(kKeyDownAndKeyUpMask, [this](const KeyEvent& event) {
      passedOn.push_back(event.type == KeyEventType::keyDown ? event.keyCode : -event.keyCode);
      return true;
    }));
  }

  void registerMenus() {
    std::vector<PieMenu> menus(3);
    menus[0].hotkey = {kKKey, 0};
    menus[1].hotkey = {49, carbon::kControl | carbon::kOption};
    menus[2].hotkey = {kOneKey, carbon::kControl};
    manager.registerAll(menus);
  }
  void showOverlay(std::uint32_t menu) {
    shownMenu = menu;
    panel = desktop.overlay.makePanel({}, {{0, 0}, {100, 100}}, sink);
    panel->orderFrontRegardless();
    panel->makeKey();
  }

  struct NoSink final : OverlayPanelSink {
    void pointerMoved(Point) override {}
    void pointerEntered() override {}
    void pointerExited() override {}
    void mouseDown(Point) override {}
    void panelLost() override {}
  };

  FakePlatform desktop;
  NoSink sink;
  std::unique_ptr<OverlayPanel> panel;
  std::uint32_t shownMenu = 0;
  std::vector<std::string> reports;
  std::vector<int> passedOn;
  HotkeyManager manager{desktop.keyboard, desktop.log};
  GrabbedKeyRouter router{manager,
                          {[this](HotkeyManager::MenuIndices indices) {
                             return std::find(indices.begin(), indices.end(), shownMenu) != indices.end();
                           },
                           [](const KeyEvent& event) { return event.charactersIgnoringModifiers == "1"; }}};
  std::vector<Subscription> monitors;
};

TEST_F(GrabbedKeyRouterTest, ReportsTheReleaseOfThePressThatOpenedTheMenu) {
  desktop.keyboard.press(kKKey);
  showOverlay(0);
  desktop.keyboard.repeat(kKKey);
  desktop.keyboard.repeat(kKKey);
  desktop.keyboard.release(kKKey);
  EXPECT_THAT(reports, ElementsAre("press 0", "release 0"));
  EXPECT_THAT(passedOn, IsEmpty());
}

TEST_F(GrabbedKeyRouterTest, ReportsEachPhysicalPressOnce) {
  desktop.keyboard.pressAll({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey});
  showOverlay(1);
  desktop.keyboard.release(Key::kSpaceKey);
  desktop.keyboard.press(Key::kSpaceKey);
  desktop.keyboard.repeat(Key::kSpaceKey);
  desktop.keyboard.releaseAll({Key::kControlKey, Key::kSpaceKey});
  EXPECT_THAT(reports, ElementsAre("press 1", "release 1", "press 1", "release 1"));
  EXPECT_THAT(passedOn, IsEmpty());
}

TEST_F(GrabbedKeyRouterTest, PassesOnWhatIsNoHotkeyWithItsReleaseAndItsRepeats) {
  showOverlay(1);
  desktop.keyboard.press(Key::kSpaceKey);
  desktop.keyboard.repeat(Key::kSpaceKey);
  desktop.keyboard.release(Key::kSpaceKey);
  EXPECT_THAT(reports, IsEmpty());
  EXPECT_THAT(passedOn, ElementsAre(49, 49, -49));
}

TEST_F(GrabbedKeyRouterTest, LetsTheShownMenusTriggerSelectWhenItsKeyIsALabel) {
  desktop.keyboard.pressAll({Key::kControlKey, kOneKey});
  showOverlay(2);
  desktop.keyboard.repeat(kOneKey);
  EXPECT_THAT(passedOn, IsEmpty());
  desktop.keyboard.release(kOneKey);
  desktop.keyboard.press(kOneKey);
  EXPECT_THAT(passedOn, ElementsAre(kOneKey));
  EXPECT_THAT(reports, ElementsAre("press 2", "release 2"));
}

TEST_F(GrabbedKeyRouterTest, TakesAnotherMenusTriggerEvenWhenItsKeyIsALabel) {
  showOverlay(1);
  desktop.keyboard.pressAll({Key::kControlKey, kOneKey});
  EXPECT_THAT(reports, ElementsAre("press 2"));
  EXPECT_THAT(passedOn, IsEmpty());
}

TEST_F(GrabbedKeyRouterTest, KeepsTheRepeatsOfAHeldHotkeyAfterItsModifiersWentUp) {
  desktop.keyboard.pressAll({Key::kControlKey, kOneKey});
  showOverlay(2);
  desktop.keyboard.release(Key::kControlKey);
  desktop.keyboard.repeat(kOneKey);
  EXPECT_THAT(passedOn, IsEmpty());
}

TEST_F(GrabbedKeyRouterTest, NoticesThatAKeyWentUpUnseen) {
  desktop.keyboard.pressAll({Key::kControlKey, kOneKey});
  desktop.keyboard.releaseUnseen(kOneKey);
  desktop.keyboard.release(Key::kControlKey);
  showOverlay(1);
  desktop.keyboard.tap(kOneKey);
  EXPECT_THAT(reports, ElementsAre("press 2"));
  EXPECT_THAT(passedOn, ElementsAre(kOneKey, -kOneKey));
}

TEST_F(GrabbedKeyRouterTest, OwesTheReleaseAcrossANewRegistration) {
  desktop.keyboard.press(kKKey);
  showOverlay(0);
  registerMenus();
  desktop.keyboard.repeat(kKKey);
  desktop.keyboard.release(kKKey);
  EXPECT_THAT(reports, ElementsAre("press 0", "release 0"));
}

TEST_F(GrabbedKeyRouterTest, LeavesTheOverlayTheReleaseOfAHotkeyThatIsGone) {
  desktop.keyboard.press(kKKey);
  showOverlay(0);
  manager.registerAll({});
  desktop.keyboard.repeat(kKKey);
  desktop.keyboard.release(kKKey);
  EXPECT_THAT(reports, ElementsAre("press 0"));
  EXPECT_THAT(passedOn, ElementsAre(-kKKey));
}

TEST_F(GrabbedKeyRouterTest, IgnoresKeysWithoutACode) {
  KeyEvent event;
  event.keyCode = KeyEvent::kNoKeyCode;
  EXPECT_FALSE(router.offer(event));
}

}  // namespace
}  // namespace rondora
