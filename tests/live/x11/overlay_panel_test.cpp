#include <xcb/shape.h>

#include <chrono>
#include <map>
#include <optional>
#include <utility>

#include "desktop/x_reply.h"
#include "doubles/allocation_counter.h"
#include "x11_test.h"

namespace rondora::live {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr Rect kFrame{{100, 100}, {200, 200}};
constexpr Area kArea{100, 100, 200, 200};

class OverlayPanelTest : public X11Test {
 protected:
  using X11Test::X11Test;

  /// The screen after all requests so far.
  Capture capture(Area area) {
    drain();
    return user_.capture(area);
  }
  void close(std::unique_ptr<OverlayPanel>& panel) {
    panel.reset();
    drain();
  }
  /// A panel of two layers side by side with a transparent stripe of 20 points between them. The right one has that
  /// state before the panel is mapped.
  std::unique_ptr<OverlayPanel> openTwoLayers(double stateOfRight = 0, const Rect& frame = kFrame) {
    const Size size = frame.size;
    const double half = size.width / 2;
    auto panel = panels_.makePanel(PieView::kPanelStyle, frame, sink_);
    panel->setPicture({size,
                       {half, size.height / 2},
                       {{{{0, 0}, {half - 10, size.height}}, {{}, {}, {}}},
                        {{{half + 10, 0}, {half - 10, size.height}}, {{}, {}, {}}}}});
    panel->setLayerState(1, stateOfRight);
    panel->display();
    panel->orderFrontRegardless();
    panel->makeKey();
    return panel;
  }
  /// Fills the area with the bystander's colour.
  void cover(const Area& area) {
    other_.cover(area);
    ASSERT_TRUE(eventually([&] { return user_.capture(area).at(area.x + 1, area.y + 1) == kCoverColor; }));
  }
  /// Exactly one snapshot was read, all of it in the bystander's colour.
  void expectSnapshotOfCover() {
    ASSERT_EQ(rasterizer_.snapshots.size(), 1U);
    EXPECT_EQ(rasterizer_.snapshots[0], std::vector<std::uint32_t>(200 * 200, 0xFF000000U | kCoverColor));
  }
  /// Shows its left layer and, between the layers and around it, the window beneath, without a shadow.
  bool looksOpenBetweenItsParts() {
    const Capture shown = capture({100, 100, 205, 205});
    return shown.at(110, 150) == SolidRasterizer::color(0) && shown.at(200, 150) == kCoverColor &&
           shown.at(302, 302) == kCoverColor;
  }

  /// The overlay's window has a bounding shape.
  bool isShaped() {
    for (const TopLevel& top : user_.topLevels()) {
      if (!top.isViewable || !(top.area == kArea)) continue;
      const auto reply = ask(other_.get(), xcb_shape_query_extents, xcb_shape_query_extents_reply, top.window);
      return reply && reply->bounding_shaped != 0;
    }
    return false;
  }
  void startCompositor() {
    compositor_.emplace(std::vector<std::string>{"picom", "--config", "/dev/null", "--backend", "xrender", "--shadow",
                                                 "--shadow-exclude", "_GTK_FRAME_EXTENTS@:c"},
                        std::map<std::string, std::string>{{"DISPLAY", server_.display()}});
    ASSERT_TRUE(eventually([&] { return user_.selectionOwner("_NET_WM_CM_S0") != XCB_NONE; }));
    ASSERT_TRUE(eventually([&] { return user_.capture({1279, 799, 1, 1}).at(1279, 799) != 0; })) << "black is the root";
  }

  std::optional<ChildProcess> compositor_;
  Bystander other_{server_.display()};
};

class OverlayWithoutSharedMemoryTest : public OverlayPanelTest {
 protected:
  // Requests of one megabyte at most: a large picture takes several.
  OverlayWithoutSharedMemoryTest() : OverlayPanelTest({"-extension", "MIT-SHM", "-maxbigreqsize", "1"}) {}
};

class ScaledOverlayTest : public OverlayPanelTest {
 protected:
  ScaledOverlayTest() : OverlayPanelTest({"-r"}, 1.5) {}
};

TEST_F(OverlayPanelTest, ReportsTextAndModifiersOfKeys) {
  auto panel = openPanel();
  user_.tap(key::capsLock);
  user_.tap(key::numLock);
  user_.keyDown(key::control);
  user_.keyDown(key::shift);
  user_.tap(key::q);
  drain();
  ASSERT_EQ(keyEvents_.size(), 2U) << "modifiers send no key-down";
  EXPECT_EQ(keyEvents_[0].keyCode, 12);
  EXPECT_EQ(keyEvents_[0].characters, "q") << "Shift against Caps Lock; Control changes nothing";
  EXPECT_EQ(keyEvents_[0].charactersIgnoringModifiers, "Q");
  EXPECT_EQ(keyEvents_[0].modifierFlags, event_flags::kControl | event_flags::kShift);
  EXPECT_EQ(monitors_.currentModifierFlags(), event_flags::kControl | event_flags::kShift);

  std::vector<std::uint64_t> flags;
  const auto monitor = monitors_.addLocalMonitor(kFlagsChangedMask, [&](const KeyEvent& event) {
    flags.push_back(event.modifierFlags);
    return false;
  });
  user_.keyUp(key::control);
  user_.keyUp(key::shift);
  drain();
  EXPECT_THAT(flags, ElementsAre(event_flags::kShift, 0U)) << "locks never count";
}

TEST_F(OverlayPanelTest, MovesAndKeysAllocateNothing) {
  ASSERT_TRUE(registerHotkey(kSpace, kControlOption));
  auto panel = openPanel();
  user_.tap(key::q);  // the first key of a device makes the server announce its mapping
  keysSeen();
  sink_.moves.reserve(1000);
  keyEvents_.reserve(1000);
  for (int i = 0; i < 100; ++i) user_.movePointer({10 + 9 * i, 20 + i});
  for (const std::uint8_t code : {key::q, key::digit1, key::control, key::space}) user_.tap(code);
  const std::size_t before = allocationCount();
  drain();
  EXPECT_EQ(allocationCount() - before, 0u);
  EXPECT_GE(sink_.moves.size(), 100u);
  EXPECT_EQ(keyEvents_.size(), 6u);
}

TEST_F(OverlayPanelTest, WaitsForAKeyboardThatAnotherClientHolds) {
  for (const bool isComposited : {false, true}) {
    if (isComposited) startCompositor();
    cover({0, 0, 640, 480});
    ASSERT_TRUE(other_.grabKeyboard());
    const auto panel = openPanel();
    user_.click();
    const double ungrabTime = time_.uptime() + 0.7;
    ASSERT_TRUE(eventually([&] { return sink_.lost > 0 || time_.uptime() >= ungrabTime; }));
    EXPECT_EQ(capture(kArea).at(110, 150), kCoverColor) << "the screen may be locked";
    EXPECT_THAT(sink_.presses, IsEmpty()) << "the ring is not visible yet";
    other_.ungrab();
    EXPECT_TRUE(eventually([&] { return capture(kArea).at(110, 150) == SolidRasterizer::color(0); }));
  }
  const auto panel = openPanel();
  user_.tap(key::q);
  EXPECT_THAT(keysSeen(), ElementsAre("down q", "up q"));
  EXPECT_EQ(sink_.lost, 0);
}

TEST_F(OverlayPanelTest, GrabsAtOnceAfterAYoungerGrabOfAnotherClient) {
  auto panel = openPanel();
  user_.tap(key::q);
  EXPECT_THAT(keysSeen(), ElementsAre("down q", "up q"));
  panel.reset();
  user_.letServerRun(std::chrono::milliseconds(5));
  ASSERT_TRUE(other_.grabKeyboard());
  other_.ungrab();
  panel = openPanel();
  EXPECT_FALSE(other_.keyboardIsFree());
}

TEST_F(OverlayPanelTest, KeyboardAloneServesUntilThePointerIsFree) {
  other_.cover({0, 0, 1280, 800});
  user_.movePointer({400, 300});
  user_.buttonDown(1);  // a drag
  auto panel = openPanel();
  EXPECT_FALSE(other_.keyboardIsFree());
  user_.movePointer({700, 500});
  const auto isAt = [&](Point point) { return !sink_.moves.empty() && sink_.moves.back() == point; };
  EXPECT_TRUE(eventually([&] { return isAt({600, 400}); }));
  user_.movePointer({710, 510});
  user_.tap(key::q);
  EXPECT_THAT(keysSeen(), ElementsAre("down q", "up q"));
  EXPECT_TRUE(isAt({610, 410})) << "the key has the pointer's position";
  const double later = time_.uptime() + 1;
  ASSERT_TRUE(eventually([&] { return time_.uptime() >= later; }));
  EXPECT_EQ(sink_.lost, 0);
  EXPECT_THAT(sink_.presses, IsEmpty());
  user_.buttonUp(1);
  EXPECT_THAT(other_.eventTypes(), IsSupersetOf({XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE})) << "the drag is not ours";
  ASSERT_TRUE(eventually([&] {
    user_.click();
    return !sink_.presses.empty();
  }));
  EXPECT_EQ(sink_.presses.front(), (Point{610, 410}));
  close(panel);

  ASSERT_TRUE(other_.grabPointer() && other_.grabKeyboard());
  panel = openPanel();
  ASSERT_TRUE(eventually([&] { return sink_.lost == 1; }));
}

TEST_F(OverlayPanelTest, ClosesWhileItWaitsAndBesideANewerPanel) {
  ASSERT_TRUE(other_.grabKeyboard());
  openPanel().reset();
  other_.ungrab();
  auto first = openPanel();
  EXPECT_FALSE(other_.keyboardIsFree());
  auto second = openPanel();
  close(first);
  EXPECT_FALSE(other_.keyboardIsFree());
  pointer_.setCursor(CursorShape::pointingHand);
  close(second);
  pointer_.setCursor(CursorShape::arrow);
  EXPECT_TRUE(user_.nothingIsGrabbed());
  EXPECT_EQ(sink_.lost, 0);
}

TEST_F(OverlayPanelTest, WindowBeneathGetsNoPartOfAClick) {
  other_.cover({0, 0, 1280, 800});
  user_.movePointer({400, 300});
  auto panel = openPanel();
  user_.buttonDown(4);
  user_.buttonUp(4);
  user_.buttonDown(1);
  drain();
  EXPECT_THAT(sink_.presses, ElementsAre(Point{300, 200})) << "the wheel is no click";
  close(panel);
  EXPECT_FALSE(user_.nothingIsGrabbed());
  user_.buttonUp(1);
  EXPECT_TRUE(eventually([&] { return user_.nothingIsGrabbed(); }));
  EXPECT_THAT(other_.eventTypes(), IsEmpty());
  user_.buttonDown(1);
  user_.buttonUp(1);
  EXPECT_THAT(other_.eventTypes(), ElementsAre(XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE));
}

TEST_F(OverlayPanelTest, BlendsOverTheSnapshotWithoutACompositor) {
  cover({0, 0, 640, 480});
  const Capture desktop = capture(kArea);
  auto panel = openTwoLayers();
  EXPECT_TRUE(looksOpenBetweenItsParts());
  EXPECT_EQ(capture(kArea).at(290, 150), SolidRasterizer::color(0));
  expectSnapshotOfCover();
  panel->setLayerState(1, SolidRasterizer::kTranslucent);
  panel->display();
  EXPECT_TRUE(looksOpenBetweenItsParts());
  EXPECT_EQ(capture(kArea).at(290, 150), 0x40BF40U) << "half of the window's green below half of grey";
  close(panel);
  EXPECT_EQ(capture(kArea), desktop);
}

TEST_F(OverlayPanelTest, RepeatsTheScreensEdgeBeyondIt) {
  cover({0, 0, 100, 100});
  const auto panel = openPanel({{-100, -100}, {200, 200}});
  expectSnapshotOfCover();
}

TEST_F(OverlayWithoutSharedMemoryTest, HasHardEdgesWithoutASnapshot) {
  const Capture desktop = capture(kArea);
  auto panel = openTwoLayers(SolidRasterizer::kTranslucent);
  panel->setAppearancePhase(1, 0.5);
  panel->display();
  const Capture shown = capture(kArea);
  EXPECT_EQ(shown.at(110, 150), SolidRasterizer::color(0)) << "opaque at once: without a snapshot nothing fades";
  EXPECT_EQ(shown.at(290, 150), desktop.at(290, 150));
  EXPECT_TRUE(rasterizer_.snapshots.empty());
  close(panel);
  panel = openTwoLayers(1, {{100, 0}, {800, 800}});
  const Capture all = capture({100, 0, 800, 800});
  for (const int y : {0, 300, 600, 799}) {
    EXPECT_EQ(all.at(100, y), SolidRasterizer::color(0));
    EXPECT_EQ(all.at(899, y), SolidRasterizer::color(1));
  }
}

TEST_F(OverlayPanelTest, StaysTransparentWhenTheCompositorChanges) {
  startCompositor();
  cover({0, 0, 640, 480});
  auto unpainted = panels_.makePanel(PieView::kPanelStyle, kFrame, sink_);
  EXPECT_TRUE(eventually([&] { return capture(kArea).at(110, 150) == kCoverColor; }));
  close(unpainted);
  const auto panel = openTwoLayers();
  const auto looksRight = [this] { return looksOpenBetweenItsParts(); };
  EXPECT_TRUE(eventually(looksRight));
  expectSnapshotOfCover();  // read from what the compositor shows
  compositor_.reset();
  EXPECT_TRUE(eventually([this] { return isShaped(); }));
  EXPECT_TRUE(eventually(looksRight));
  startCompositor();
  EXPECT_TRUE(eventually([this] { return !isShaped(); })) << "the compositor may paint all of it";
  EXPECT_TRUE(eventually(looksRight));
}

TEST_F(OverlayPanelTest, ComesBackAfterBeingCoveredAndStaysOnTop) {
  auto panel = openPanel();
  other_.cover({0, 0, 640, 480});
  EXPECT_TRUE(eventually([&] { return capture(kArea).at(200, 200) == SolidRasterizer::color(0); }));
  coverArea(connection_.get(), {190, 190, 20, 20});
  EXPECT_EQ(capture(kArea).at(200, 200), kCoverColor) << "a window of our own may lie above";
}

TEST_F(ScaledOverlayTest, CentresOnThePointersPixel) {
  user_.movePointer({601, 401});
  const Point center = pointer_.location();
  auto panel = openPanel(squareAround(center, 100));
  const auto windows = user_.topLevels();
  ASSERT_FALSE(windows.empty());
  EXPECT_EQ(windows.back().area.x + windows.back().area.width / 2, 601);
  EXPECT_EQ(windows.back().area.y + windows.back().area.height / 2, 401);
  EXPECT_EQ(windows.back().area.width, 300);
  const Point inside = panel->mouseLocationOutsideOfEventStream();
  EXPECT_NEAR(inside.x, 100, 0.4);
  EXPECT_NEAR(inside.y, 100, 0.4);
}

}  // namespace
}  // namespace rondora::live
