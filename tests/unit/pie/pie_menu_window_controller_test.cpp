#include "pie/controller/pie_menu_window_controller.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "doubles/allocation_counter.h"
#include "doubles/fake_platform.h"
#include "pie/picture/ring_picture.h"

namespace rondora {
namespace {

using Index = std::optional<std::size_t>;

constexpr Point kOpenedAt{640, 400};
constexpr HotkeyConfig kOptionSpace{FakeKeyboard::kSpaceKey, carbon::kOption};

/// The overlay on the little desktop; notes what it reports, one word each.
class OverlayTest : public testing::Test {
 protected:
  OverlayTest() {
    desktop.overlay.moveTo(kOpenedAt);
    menu.id = desktop.random.uuid();
    menu.items = makeItems(6);
    menu.animationDuration = 0;
    controller.onItemSelected = [this](const PieMenuItem& item) {
      controller.hide();
      notes.push_back("item " + item.title);
    };
    controller.onCommandSelected = [this](const PieSubAction& command) {
      controller.hide();
      notes.push_back("command " + command.title);
    };
    controller.onHoverChanged = [this](const PieMenuItem* item) { hovered.push_back(item ? item->title : "none"); };
    controller.onHide = [this] { notes.push_back("hidden"); };
  }

  static std::vector<PieMenuItem> makeItems(std::size_t count) {
    std::vector<PieMenuItem> items(count);
    for (std::size_t i = 0; i < count; ++i) {
      items[i].title = "sector number " + std::to_string(i) + " of the ring";
      items[i].sectorIndex = static_cast<std::int64_t>(i);
    }
    return items;
  }
  static std::string title(std::size_t index) { return makeItems(index + 1)[index].title; }

  PieMenuWindowController::Ports ports() {
    return {desktop.overlay,  desktop.screens, desktop.overlay, desktop.haptics,
            desktop.keyboard, desktop.time,    desktop.time};
  }
  void show(std::optional<HotkeyConfig> chord = std::nullopt) { controller.show(menu, std::nullopt, chord, {}); }
  void arm(const HotkeyConfig& hotkey) {
    controller.scheduleClickModeModifierChordReleaseDismissal(hotkey, [this] { notes.push_back("released"); });
  }
  const PanelRecord& panel() const { return *desktop.overlay.panels.back(); }
  void moveBy(double x, double y) { desktop.overlay.moveTo(kOpenedAt + Point{x, y}); }
  Index selectedItem() const {
    const auto selection = controller.currentSelection();
    if (!selection) return std::nullopt;
    return static_cast<std::size_t>(std::get<PieMenuItem>(*selection).sectorIndex);
  }
  std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

  FakePlatform desktop;
  PieMenu menu;
  std::vector<std::string> notes;
  std::vector<std::string> hovered;
  bool haptics = true;
  PieMenuWindowController controller{
      ports(), {[this] { return haptics; }, [](const PieMenuItem& item) { return "<" + item.title + ">"; }}};
};

using Notes = std::vector<std::string>;

TEST_F(OverlayTest, OpensAroundThePointerIsReplacedSilentlyAndLeavesNothingBehind) {
  show();
  EXPECT_TRUE(panel().isKey);
  EXPECT_EQ(panel().frame.center(), kOpenedAt);
  EXPECT_EQ(panel().frame.size, panel().picture.size);
  EXPECT_EQ(panel().picture.anchor, kOpenedAt - panel().frame.origin);
  EXPECT_EQ(controller.displayedMenuId(), menu.id);
  EXPECT_EQ(controller.currentSelection(), std::nullopt);

  moveBy(100, 10);
  PieMenu other = menu;
  other.id = desktop.random.uuid();
  controller.show(other, makeItems(2), std::nullopt, {});
  EXPECT_TRUE(desktop.overlay.panels.front()->isGone);
  EXPECT_EQ(panel().frame.center(), kOpenedAt + (Point{100, 10}));
  EXPECT_EQ(controller.displayedMenuId(), other.id);
  EXPECT_EQ(controller.currentSelection(), std::nullopt);
  EXPECT_EQ(desktop.keyboard.monitorCount(), 1u);
  EXPECT_EQ(takeNotes(), Notes{});

  controller.hide();
  EXPECT_TRUE(panel().isGone);
  EXPECT_EQ(controller.displayedMenuId(), std::nullopt);
  EXPECT_EQ(desktop.keyboard.monitorCount(), 0u);
  desktop.time.runUntilIdle();
  EXPECT_EQ(desktop.time.pendingCount(), 0u);
  controller.hide();
  EXPECT_EQ(takeNotes(), Notes{"hidden"});
}

TEST_F(OverlayTest, SectorsFollowTheirIndexAndEqualOnesTheList) {
  menu.items = makeItems(4);
  for (std::size_t i = 0; i < 4; ++i) menu.items[i].sectorIndex = i % 2 == 0 ? 7 : -1;
  show();
  Notes order;
  const PictureLayer& titles = panel().picture.layers[ring_layers::title(4)];
  for (std::size_t i = 1; i < titles.states.size(); ++i)
    order.push_back(std::get<TextCommand>(titles.states[i].back()).text);
  EXPECT_EQ(order, (Notes{"<" + title(1) + ">", "<" + title(3) + ">", "<" + title(0) + ">", "<" + title(2) + ">"}));
}

TEST_F(OverlayTest, ThePointerDrivesTheHighlight) {
  show();
  moveBy(100, 1);
  EXPECT_EQ(panel().layerStates[ring_layers::sector(1)], ring_layers::kHighlighted);
  EXPECT_EQ(selectedItem(), Index(1));
  moveBy(100, 5);
  moveBy(-5000, 1);  // far outside the panel
  EXPECT_EQ(selectedItem(), Index(4));
  moveBy(10, 10);
  EXPECT_EQ(selectedItem(), std::nullopt);
  EXPECT_EQ(hovered, (Notes{title(1), title(4), "none"}));
  EXPECT_EQ(desktop.haptics.performed.size(), 2u);
}

TEST_F(OverlayTest, TheHubIsTheFirstSectorOfTheRunningApplicationsOnly) {
  menu.kind = PieMenuKind::runningApps;
  controller.show(menu, makeItems(3), std::nullopt, {});
  EXPECT_EQ(desktop.overlay.cursors.back(), CursorShape::pointingHand);
  moveBy(10, 10);
  EXPECT_EQ(selectedItem(), Index(0));
  desktop.overlay.click();
  EXPECT_EQ(takeNotes(), (Notes{"hidden", "item " + title(0)}));
}

TEST_F(OverlayTest, AMenuWithoutItemsOnlyDismisses) {
  menu.items.clear();
  show(kOptionSpace);
  controller.advanceRunningAppsSelection();
  moveBy(100, 0);
  EXPECT_EQ(controller.currentSelection(), std::nullopt);
  EXPECT_EQ(hovered, Notes{"none"});
  desktop.overlay.click();
  EXPECT_EQ(takeNotes(), Notes{"hidden"});
}

TEST_F(OverlayTest, TheOpeningKeyNeitherStepsNorChoosesBeforeItHasGoneUp) {
  desktop.keyboard.pressAll({FakeKeyboard::kOptionKey, FakeKeyboard::kSpaceKey});
  show(kOptionSpace);
  desktop.keyboard.repeat(FakeKeyboard::kSpaceKey);
  EXPECT_EQ(selectedItem(), std::nullopt);
  desktop.keyboard.release(FakeKeyboard::kSpaceKey);
  desktop.keyboard.tap(FakeKeyboard::kSpaceKey);
  EXPECT_EQ(selectedItem(), Index(0));

  controller.hide();
  desktop.keyboard.press(19);
  show(HotkeyConfig{19, 0});
  desktop.keyboard.repeat(19);
  EXPECT_EQ(takeNotes(), Notes{"hidden"});
  desktop.keyboard.release(19);
  desktop.keyboard.press(19);
  EXPECT_EQ(takeNotes(), (Notes{"hidden", "item " + title(2)}));
}

TEST_F(OverlayTest, StepsCloserThan18MillisecondsCountAsOne) {
  show();
  controller.advanceRunningAppsSelection();
  desktop.time.advance(0.0179);
  controller.advanceRunningAppsSelection();
  EXPECT_EQ(selectedItem(), Index(0));
  desktop.time.advance(0.0002);
  haptics = false;
  controller.advanceRunningAppsSelection();
  EXPECT_EQ(selectedItem(), Index(1));
  EXPECT_EQ(desktop.haptics.performed.size(), 1u);
}

TEST_F(OverlayTest, OnlyTheExactChordSteps) {
  show(kOptionSpace);
  controller.clearChordNavigationIgnoreUntilMainKeyUp();
  KeyEvent key;
  key.keyCode = FakeKeyboard::kSpaceKey;
  for (const std::uint64_t flags : {std::uint64_t{0}, event_flags::kOption | event_flags::kShift}) {
    key.modifierFlags = flags;
    EXPECT_FALSE(controller.handleKeyEvent(key));
  }
  key.modifierFlags = event_flags::kOption | 0x20;  // with a bit that depends on the device
  EXPECT_TRUE(controller.handleKeyEvent(key));
  EXPECT_EQ(selectedItem(), Index(0));

  key.modifierFlags = 0;
  for (const std::int64_t never : {kFnKeyCode, std::int64_t{-1}}) {
    show(HotkeyConfig{never, 0});
    controller.clearChordNavigationIgnoreUntilMainKeyUp();
    key.keyCode = static_cast<std::uint16_t>(never);
    EXPECT_FALSE(controller.handleKeyEvent(key));
  }
}

TEST_F(OverlayTest, ATremblingHandDoesNotUndoAStep) {
  show(kOptionSpace);
  moveBy(2, -3);
  EXPECT_TRUE(hovered.empty());
  moveBy(100, 1);
  desktop.time.advance(0.1);
  controller.advanceRunningAppsSelection();
  EXPECT_EQ(selectedItem(), Index(2));
  EXPECT_EQ(hovered, (Notes{title(1), title(2)}));
  moveBy(100, -3);  // four points away, in another sector
  EXPECT_EQ(selectedItem(), Index(2));
  moveBy(100, -3.5);
  EXPECT_EQ(selectedItem(), Index(1));
  moveBy(100, 1);  // back where the step was, but moving again
  EXPECT_EQ(selectedItem(), Index(1));
  desktop.overlay.moveTo(kOpenedAt);
  EXPECT_EQ(selectedItem(), std::nullopt);
}

TEST_F(OverlayTest, KeysAreMatchedByTextFirstAndByPlaceLast) {
  menu.items = makeItems(11);
  show();
  const auto typed = [](std::uint16_t keyCode, const char* ignoringModifiers, const char* characters) {
    return KeyEvent{.keyCode = keyCode, .characters = characters, .charactersIgnoringModifiers = ignoringModifiers};
  };
  EXPECT_EQ(controller.quickSelectIndex(typed(12, "q", "x")), Index(10));
  EXPECT_EQ(controller.quickSelectIndex(typed(12, "a", "7")), Index(7));   // a layout with Alt-digits
  EXPECT_EQ(controller.quickSelectIndex(typed(12, "a", "a")), Index(10));  // the place of Q on a French keyboard
  EXPECT_EQ(controller.quickSelectIndex(typed(0, "q", "q")), Index(10));   // the key that types it there
  EXPECT_EQ(controller.quickSelectIndex(typed(18, "&", "&")), Index(1));
  EXPECT_FALSE(controller.handleKeyEvent(typed(13, "w", "w")));  // beyond the items
  EXPECT_FALSE(controller.handleKeyEvent(
      {.type = KeyEventType::keyUp, .keyCode = 18, .characters = "1", .charactersIgnoringModifiers = "1"}));
  EXPECT_TRUE(notes.empty());
}

TEST_F(OverlayTest, EscapeScreenChangesAndALostPanelHide) {
  show();
  desktop.keyboard.press(FakeKeyboard::kEscapeKey);
  EXPECT_EQ(takeNotes(), Notes{"hidden"});
  show();
  desktop.screens.change(desktop.screens.screens);
  EXPECT_EQ(takeNotes(), Notes{"hidden"});
  desktop.screens.change(desktop.screens.screens);
  desktop.overlay.refusesGrab = true;
  show();
  desktop.time.runUntilIdle();
  EXPECT_EQ(takeNotes(), Notes{"hidden"});
  EXPECT_FALSE(controller.isVisible());
}

TEST_F(OverlayTest, CommandsAreReportedAsCommands) {
  PieSubAction quit{"Quit", "xmark", AppSubMenuEntry::Kind::quitApp, {}, {}};
  PieSubAction copy{"Copy", "", AppSubMenuEntry::Kind::menuItem, {"Edit", "Copy"}, MenuShortcut{"c", 0}};
  menu.kind = PieMenuKind::appCommands;
  controller.show(menu, std::nullopt, std::nullopt,
                  PieMenuWindowController::AppCommands{{quit, copy}, makeItems(2), 90});
  moveBy(0, -100);  // turned by 90 degrees, the second half of the ring begins at 9 o'clock
  EXPECT_EQ(controller.currentSelection(), PieMenuSelection(copy));
  desktop.keyboard.tap(29);
  EXPECT_EQ(takeNotes(), (Notes{"hidden", "command Quit"}));
}

TEST_F(OverlayTest, AFlickBeforeThePanelHasThePointerChooses) {
  desktop.keyboard.press(FakeKeyboard::kOptionKey);
  desktop.overlay.flick = kOpenedAt + Point{100, 1};
  show(kOptionSpace);
  arm(kOptionSpace);
  desktop.keyboard.releaseUnseen(FakeKeyboard::kOptionKey);
  desktop.time.runUntilIdle();
  EXPECT_EQ(takeNotes(), Notes{"released"});
  EXPECT_EQ(selectedItem(), Index(1));
  EXPECT_EQ(panel().frame.center(), kOpenedAt);
  EXPECT_EQ(controller.showMouseLocation(), kOpenedAt + (Point{100, 1}));
}

TEST_F(OverlayTest, NothingIsArmedWithoutModifiersOrAfterTheShowing) {
  show();
  arm(kOptionSpace);
  arm(HotkeyConfig{FakeKeyboard::kSpaceKey, 0});  // takes the pending one back
  desktop.time.runUntilIdle();
  EXPECT_EQ(desktop.keyboard.monitorCount(), 1u);
  arm(kOptionSpace);
  controller.hide();
  desktop.time.runUntilIdle();
  EXPECT_EQ(takeNotes(), Notes{"hidden"});
  EXPECT_EQ(desktop.keyboard.monitorCount(), 0u);
}

TEST_F(OverlayTest, TheOpeningAnimationEndsByItself) {
  menu.animationDuration = 0.2;
  show();
  EXPECT_LT(panel().scale, 1);
  EXPECT_GE(panel().opacity, 0.4);
  const double first = panel().scale;
  desktop.time.advance(0.1);
  EXPECT_GT(panel().scale, first);
  EXPECT_LT(panel().scale, 1);
  desktop.time.advance(0.12);
  EXPECT_EQ(panel().scale, 1);
  EXPECT_EQ(panel().opacity, 1);
  EXPECT_EQ(desktop.time.pendingCount(), 0u);
}

TEST_F(OverlayTest, ShowsOnScreensThatChangeOrAreMissing) {
  const Screen left{{{-800, 0}, {800, 600}}, {{-800, 0}, {800, 500}}};
  const Screen right{{{0, 0}, {2000, 2000}}, {{0, 0}, {2000, 2000}}};
  menu.menuRadius = 1e300;
  desktop.screens.screens = {right, left};
  const auto ringAt = [&](Point pointer) {
    desktop.overlay.moveTo(pointer);
    show();
    EXPECT_EQ(panel().frame.center(), pointer);
    return panel().frame.size.width;
  };
  EXPECT_LT(ringAt({-400, 100}), 600);  // bounded by the small screen
  EXPECT_GT(ringAt({500, 100}), 1500);  // by the large one
  EXPECT_GT(ringAt({-5000, 0}), 1500);  // on none: the main screen
  desktop.screens.hasMain = false;
  desktop.screens.screens = {left, right};
  EXPECT_LT(ringAt({-5000, 0}), 600);  // the first
  desktop.screens.screens.clear();
  EXPECT_LT(ringAt({0, 0}), 1000);
}

TEST_F(OverlayTest, TheCentreIsAtThePointerOnAnyScreensHoweverOftenItOpens) {
  std::mt19937 random(7);
  const auto between = [&](int least, int most) { return double(std::uniform_int_distribution(least, most)(random)); };
  for (int layout = 0; layout < 100; ++layout) {
    std::vector<Screen> screens(static_cast<std::size_t>(between(1, 3)));
    for (auto& [frame, visibleFrame] : screens) {
      frame = {{between(-3000, 3000), between(-1500, 1500)}, {between(640, 3840), between(480, 2160)}};
      visibleFrame = {frame.origin + Point{0, between(0, 60)}, {frame.size.width, frame.size.height - 60}};
    }
    desktop.screens.change(screens);
    for (int opening = 0; opening < 3; ++opening) {
      const Point pointer{between(-4000, 9000), between(-2000, 3500)};  // also where there is no screen
      desktop.overlay.moveTo(pointer);
      show();
      ASSERT_EQ(panel().frame.center(), pointer) << "layout " << layout << ", opening " << opening;
      controller.hide();
    }
    desktop.overlay.panels.clear();
  }
}

TEST_F(OverlayTest, EndsWithItsOwnerAndKeepsNobodyAlive) {
  auto other = std::make_unique<PieMenuWindowController>(ports(), PieMenuWindowController::Environment{});
  desktop.keyboard.press(FakeKeyboard::kOptionKey);
  other->show(menu, std::nullopt, kOptionSpace, {});
  other->scheduleClickModeModifierChordReleaseDismissal(kOptionSpace, [this] { notes.push_back("released"); });
  other.reset();
  EXPECT_TRUE(panel().isGone);
  desktop.keyboard.release(FakeKeyboard::kOptionKey);
  desktop.time.runUntilIdle();
  desktop.screens.change({});
  EXPECT_EQ(desktop.keyboard.monitorCount(), 0u);
  EXPECT_EQ(takeNotes(), Notes{});
}

TEST_F(OverlayTest, PointerMovesAndKeyMatchesAllocateNothing) {
  menu.items = makeItems(36);
  haptics = false;
  controller.onHoverChanged = nullptr;
  show(kOptionSpace);
  desktop.overlay.cursors.reserve(100);
  moveBy(100, 0);
  const KeyEvent key{.keyCode = 46, .characters = "ΐ", .charactersIgnoringModifiers = "ß"};
  const std::size_t before = allocationCount();
  for (int i = 0; i < 1000; ++i) moveBy(100 * std::cos(i), 100 * std::sin(i));
  const Index index = controller.quickSelectIndex(key);
  EXPECT_EQ(allocationCount() - before, 0u);
  EXPECT_EQ(index, Index(35));
  EXPECT_GT(panel().displayCount, 900);
}

}  // namespace
}  // namespace rondora
