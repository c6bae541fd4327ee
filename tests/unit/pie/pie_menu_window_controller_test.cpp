#include "pie/controller/pie_menu_window_controller.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <random>

#include "doubles/allocation_counter.h"
#include "doubles/fake_platform.h"
#include "doubles/stories.h"
#include "pie/picture/ring_picture.h"

namespace rondora {
namespace {

using Index = std::optional<std::size_t>;

constexpr Point kOpenedAt{640, 400};

std::vector<PieMenuItem> makeItems(std::size_t count) {
  std::vector<PieMenuItem> items(count);
  for (std::size_t i = 0; i < count; ++i) {
    items[i].title = std::to_string(i);
    items[i].sectorIndex = static_cast<std::int64_t>(i);
  }
  return items;
}

/// The overlay on the fake desktop.
struct Overlay {
  Overlay() {
    desktop.overlay.moveTo(kOpenedAt);
    menu.id = desktop.random.uuid();
    menu.items = makeItems(6);
    menu.animationDuration = 0;
    controller->onItemSelected = [this](const PieMenuItem& item) { chosen("item " + item.title); };
    controller->onCommandSelected = [this](const PieSubAction& command) { chosen("command " + command.title); };
    controller->onHoverChanged = [this](const PieMenuItem* item) { hovers.push_back(item ? item->title : "-"); };
    controller->onHide = [this] { reports.emplace_back("hidden"); };
  }

  void chosen(const std::string& report) {
    controller->hide();
    reports.push_back(report);
  }
  PieMenuWindowController::Ports ports() {
    return {desktop.overlay,  desktop.screens, desktop.overlay, desktop.haptics,
            desktop.keyboard, desktop.time,    desktop.time,    desktop.announcer};
  }
  void show(std::optional<HotkeyConfig> chord = std::nullopt) { controller->show(menu, std::nullopt, chord, {}); }
  const PanelRecord& panel() const { return *desktop.overlay.panels.back(); }
  void moveBy(double x, double y) { desktop.overlay.moveTo(kOpenedAt + Point{x, y}); }
  std::string highlight() const {
    const auto selection = controller->currentSelection();
    return selection ? std::get<PieMenuItem>(*selection).title : "none";
  }

  FakePlatform desktop;
  PieMenu menu;
  Words reports;
  Words hovers;
  bool haptics = true;
  std::unique_ptr<PieMenuWindowController> controller = std::make_unique<PieMenuWindowController>(
      ports(), PieMenuWindowController::Environment{[this] { return haptics; },
                                                    [](const PieMenuItem& item) { return "<" + item.title + ">"; },
                                                    {},
                                                    [] { return "empty"; }});
};

class OverlayTest : public testing::Test, protected Overlay {};

// The vocabulary of fixtures/stories/overlay.txt. Reading a list empties it.

std::uint16_t keyCode(const std::string& name) {
  static const std::map<std::string, int> kCodes = {
      {"option", 58}, {"shift", 56}, {"space", 49}, {"escape", 53}, {"fn", 63},
      {"0", 29},      {"1", 18},     {"2", 19},     {"unset", -1},
  };
  return static_cast<std::uint16_t>(kCodes.at(name));
}

std::uint64_t flagsOf(const std::string& modifiers) {
  const auto has = [&](const char* name) { return modifiers.find(name) != std::string::npos; };
  return (has("option") ? event_flags::kOption : 0) | (has("shift") ? event_flags::kShift : 0) |
         (has("device") ? 0x20 : 0);
}

HotkeyConfig chord(const std::string& text) {
  const std::string key = text.substr(text.rfind('+') + 1);
  return {key == "unset" ? -1 : keyCode(key), CarbonModifiers::carbon(flagsOf(text))};
}

struct OverlayStory : Overlay, Story {
  using W = const Words&;

  OverlayStory() {
    actions = {
        {"press", keys(&FakeKeyboard::press)},
        {"release", keys(&FakeKeyboard::release)},
        {"tap", keys(&FakeKeyboard::tap)},
        {"repeat", keys(&FakeKeyboard::repeat)},
        {"unseen", keys(&FakeKeyboard::releaseUnseen)},
        {"pointer", [this](W w) { moveBy(point(w).x, point(w).y); }},
        {"flick", [this](W w) { desktop.overlay.flick = kOpenedAt + point(w); }},
        {"exit", [this](W) { panel().sink.pointerExited(); }},
        {"enter", [this](W) { panel().sink.pointerEntered(); }},
        {"click", [this](W) { desktop.overlay.click(); }},
        {"wait", [this](W w) { desktop.time.advance(std::stod(w.at(0))); }},
        {"idle", [this](W) { desktop.time.runUntilIdle(); }},
        {"screens", [this](W) { desktop.screens.change(desktop.screens.screens); }},
        {"refuse-grab", [this](W) { desktop.overlay.refusesGrab = true; }},
        {"no-haptics", [this](W) { haptics = false; }},
        {"items", [this](W w) { menu.items = makeItems(std::stoul(w.at(0))); }},
        {"name", [this](W w) { menu.name = w.at(0); }},
        {"kind", [this](W w) { menu.kind = *pieMenuKindFromRawValue(w.at(0)); }},
        {"open", [this](W w) { show(w.empty() ? std::nullopt : std::optional(chord(w[0]))); }},
        {"commands",
         [this](W w) {
           showCommands({w.at(1), w.at(2)}, std::stod(w.at(0)));
         }},
        {"hide", [this](W) { controller->hide(); }},
        {"destroy", [this](W) { controller.reset(); }},
        {"step", [this](W) { controller->advanceRunningAppsSelection(); }},
        {"main-key-up", [this](W) { controller->clearChordNavigationIgnoreUntilMainKeyUp(); }},
        {"arm", [this](W w) { arm(chord(w.at(0))); }},
        {"send", [this](W w) { send(keyCode(w.at(0)), flagsOf(joined(w))); }},
        {"match", [this](W w) { match(w); }},
        {"reader", [this](W w) { desktop.announcer.isHeard = w.at(0) == "on"; }},
    };
    observations = {
        {"highlight", [this] { return highlight(); }},
        {"command", [this] { return std::get<PieSubAction>(*controller->currentSelection()).title; }},
        {"reports", [this] { return joined(std::exchange(reports, {})); }},
        {"hovers", [this] { return joined(std::exchange(hovers, {})); }},
        {"said", [this] { return joined(std::exchange(desktop.announcer.said, {})); }},
        {"consumed", [this] { return yesOrNo(consumed); }},
        {"chooses", [this] { return matched ? std::to_string(*matched) : "none"; }},
        {"ticks", [this] { return std::to_string(desktop.haptics.performed.size()); }},
        {"monitors", [this] { return std::to_string(desktop.keyboard.monitorCount()); }},
        {"cursor", [this] { return desktop.overlay.cursors.back() == CursorShape::arrow ? "arrow" : "hand"; }},
        {"cursors-set", [this] { return std::to_string(desktop.overlay.cursors.size()); }},
        {"opened-at", [this] { return openedAt(); }},
        {"drawn", [this] { return drawn(); }},
    };
  }

  std::function<void(W)> keys(void (FakeKeyboard::*act)(std::uint16_t)) {
    return [this, act](W w) {
      for (const std::string& name : w) (desktop.keyboard.*act)(keyCode(name));
    };
  }
  static Point point(W w) { return {std::stod(w.at(0)), std::stod(w.at(1))}; }
  void showCommands(W titles, double rotation) {
    std::vector<PieSubAction> commands(titles.size());
    for (std::size_t i = 0; i < titles.size(); ++i) commands[i].title = titles[i];
    controller->show(menu, std::nullopt, std::nullopt, AppCommands{commands, makeItems(titles.size()), rotation});
  }
  void send(std::uint16_t key, std::uint64_t flags) {
    KeyEvent event;
    event.keyCode = key;
    event.modifierFlags = flags;
    consumed = controller->handleKeyEvent(event);
  }
  void match(W w) {
    matched = controller->quickSelectIndex({.keyCode = static_cast<std::uint16_t>(std::stoi(w.at(0))),
                                            .characters = w.at(2),
                                            .charactersIgnoringModifiers = w.at(1)});
  }
  void arm(const HotkeyConfig& hotkey) {
    controller->scheduleClickModeModifierChordReleaseDismissal(hotkey, [this] { reports.emplace_back("released"); });
  }
  std::string openedAt() const {
    const Point moved = controller->showMouseLocation() - kOpenedAt;
    return std::to_string(std::lround(moved.x)) + " " + std::to_string(std::lround(moved.y));
  }
  std::string drawn() const {
    const auto& states = panel().layerStates;
    const auto lit = std::find(states.begin() + 1, states.end(), ring_layers::kHighlighted);
    return std::to_string(lit - states.begin() - 1);
  }

  bool consumed = false;
  Index matched;
};

TEST(OverlayStories, PlayAsWritten) { playStories<OverlayStory>("overlay"); }

TEST_F(OverlayTest, OpensAtThePointerAndLeavesNothingBehind) {
  controller->prerender(menu, std::nullopt, std::nullopt);
  show();
  EXPECT_EQ(panel().picture, desktop.overlay.prerendered.back());
  EXPECT_TRUE(panel().isKey);
  EXPECT_EQ(panel().frame.center(), kOpenedAt);
  EXPECT_EQ(panel().frame.size, panel().picture.size);
  EXPECT_EQ(panel().picture.anchor, kOpenedAt - panel().frame.origin);
  EXPECT_EQ(controller->displayedMenuId(), menu.id);
  EXPECT_EQ(controller->currentSelection(), std::nullopt);

  moveBy(100, 10);
  PieMenu other = menu;
  other.id = desktop.random.uuid();
  controller->show(other, makeItems(2), std::nullopt, {});
  EXPECT_TRUE(desktop.overlay.panels.front()->isGone);
  EXPECT_EQ(panel().frame.center(), kOpenedAt + (Point{100, 10}));
  EXPECT_EQ(controller->displayedMenuId(), other.id);
  EXPECT_EQ(controller->currentSelection(), std::nullopt);
  EXPECT_EQ(desktop.keyboard.monitorCount(), 1u);
  EXPECT_EQ(std::exchange(reports, {}), Words{});

  controller->hide();
  EXPECT_TRUE(panel().isGone);
  EXPECT_EQ(controller->displayedMenuId(), std::nullopt);
  EXPECT_EQ(desktop.keyboard.monitorCount(), 0u);
  desktop.time.runUntilIdle();
  EXPECT_EQ(desktop.time.pendingCount(), 0u);
  controller->hide();
  EXPECT_EQ(std::exchange(reports, {}), Words{"hidden"});
}

TEST_F(OverlayTest, SectorsFollowIndexThenListOrder) {
  menu.items = makeItems(4);
  for (std::size_t i = 0; i < 4; ++i) menu.items[i].sectorIndex = i % 2 == 0 ? 7 : -1;
  show();
  Words order;
  const PictureLayer& titles = panel().picture.layers[ring_layers::title(4)];
  for (std::size_t i = 1; i < titles.states.size(); ++i)
    order.push_back(std::get<TextCommand>(titles.states[i].back()).text);
  EXPECT_EQ(order, (Words{"<1>", "<3>", "<0>", "<2>"}));
}

TEST_F(OverlayTest, CrowdedRingHighlightsAndNamesTheSectorUnderThePointer) {
  menu.items = makeItems(3000);
  show();
  moveBy(-0.1, 100);
  const auto& states = panel().layerStates;
  ASSERT_EQ(states.size(), 4U);
  EXPECT_EQ(states[ring_layers::kHighlight], 1501);
  EXPECT_EQ(states[ring_layers::title(3000)], 1501);
  const Rect lit = boundsOf({panel().picture.layers[ring_layers::kHighlight].states[1501]});
  EXPECT_GE(lit.size.width, 3);
  EXPECT_LT(lit.size.width, 6);
}

TEST_F(OverlayTest, OpeningAnimationEnds) {
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
  ringAt({0, 300});
  const Picture whole = panel().picture;
  desktop.screens.sharesWindows = false;
  ringAt({0, 300});
  EXPECT_NE(panel().picture, whole) << "the hub's texts are on the half that the right screen shows";
  desktop.screens.hasMain = false;
  desktop.screens.screens = {left, right};
  EXPECT_LT(ringAt({-5000, 0}), 600);  // the first
  desktop.screens.screens.clear();
  EXPECT_LT(ringAt({0, 0}), 1000);
}

TEST_F(OverlayTest, CentreIsAtThePointerOnAnyScreens) {
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
      controller->hide();
    }
    desktop.overlay.panels.clear();
  }
}

TEST_F(OverlayTest, PointerMovesAndKeyMatchesAllocateNothing) {
  menu.items = makeItems(36);
  haptics = false;
  controller->onHoverChanged = nullptr;
  show();
  desktop.overlay.cursors.reserve(100);
  moveBy(100, 0);
  const KeyEvent key{.keyCode = 46, .characters = "ΐ", .charactersIgnoringModifiers = "ß"};
  const std::size_t before = allocationCount();
  for (int i = 0; i < 1000; ++i) moveBy(100 * std::cos(i), 100 * std::sin(i));
  const Index index = controller->quickSelectIndex(key);
  EXPECT_EQ(allocationCount() - before, 0u);
  EXPECT_EQ(index, Index(35));
  EXPECT_GT(panel().displayCount, 900);
}

}  // namespace
}  // namespace rondora
