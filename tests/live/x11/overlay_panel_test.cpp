#include <xcb/shape.h>
#include <xcb/xtest.h>

#include <chrono>
#include <utility>

#include "doubles/allocation_counter.h"
#include "support/x_reply.h"
#include "x11_test.h"

namespace rondora::live {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rect kFrame{{100, 100}, {200, 200}};
constexpr Area kArea{100, 100, 200, 200};

class OverlayPanelTest : public X11Test {
 protected:
  using X11Test::X11Test;

  /// The screen after everything that we have asked for so far.
  Capture capture(Area area) {
    drain();
    return user_.capture(area);
  }
  void close(std::unique_ptr<OverlayPanel>& panel) {
    panel.reset();
    drain();
  }
  bool somebodyElseGetsTheKeyboard() {
    const bool isFree = other_.grabKeyboard();
    other_.ungrabKeyboard();
    return isFree;
  }

  /// A panel of two layers side by side with a transparent stripe of 20 points between them; `prepare` is called before
  /// it is on the screen.
  std::unique_ptr<OverlayPanel> openTwoLayers(
      const std::function<void(OverlayPanel&)>& prepare = [](OverlayPanel&) {}, const Rect& frame = kFrame) {
    const Size size = frame.size;
    const double half = size.width / 2;
    auto panel = panels_.makePanel({}, frame, sink_);
    panel->setPicture({size,
                       {half, size.height / 2},
                       {{{{0, 0}, {half - 10, size.height}}, {{}, {}, {}}},
                        {{{half + 10, 0}, {half - 10, size.height}}, {{}, {}, {}}}}});
    prepare(*panel);
    panel->orderFrontRegardless();
    panel->makeKey();
    return panel;
  }
  /// The area is in the bystander's colour, wherever nothing lies above.
  void cover(const Area& area) {
    other_.coverArea(static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                     static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height));
    ASSERT_TRUE(eventually([&] { return user_.capture(area).at(area.x + 1, area.y + 1) == Bystander::kColor; }));
  }
  /// The one backdrop that was read is all in the bystander's colour.
  void expectCoveredBackdrop() {
    ASSERT_EQ(rasterizer_.backdrops.size(), 1U);
    EXPECT_EQ(rasterizer_.backdrops[0], std::vector<std::uint32_t>(200 * 200, 0xFF000000U | Bystander::kColor));
  }
  void waitForCompositor() {
    ASSERT_TRUE(eventually([&] { return user_.selectionOwner("_NET_WM_CM_S0") != XCB_NONE; }));
    drain();
  }
  /// Layers and what lies between them.
  bool looksOpenBetweenItsParts() {
    const Capture shown = capture(kArea);
    return shown.at(110, 150) == SolidRasterizer::color(0) && shown.at(200, 150) == Bystander::kColor;
  }

  /// The overlay's window is not the whole rectangle.
  bool isShaped() {
    const auto reply =
        ask(other_.get(), xcb_shape_query_extents, xcb_shape_query_extents_reply, user_.topLevels().back().window);
    return reply && reply->bounding_shaped != 0;
  }

  const std::vector<std::string> compositor_{"picom", "--config", "/dev/null", "--backend", "xrender"};
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

TEST_F(OverlayPanelTest, TakesEveryKeyAndMoveWithoutTouchingTheFocus) {
  const xcb_window_t focus = user_.inputFocus();
  user_.movePointer({140, 160});
  auto panel = openPanel();
  EXPECT_TRUE(panel->isVisible());
  EXPECT_THAT(std::exchange(sink_.moves, {}), ElementsAre(Point{40, 60})) << "where the pointer is to begin with";
  user_.tap(key::q);
  user_.movePointer({150, 160});
  user_.movePointer({1000, 700});
  EXPECT_THAT(keysSeen(), ElementsAre("down q", "up q"));
  EXPECT_THAT(sink_.moves, ElementsAre(Point{50, 60}, Point{900, 600}));
  EXPECT_EQ(panel->mouseLocationOutsideOfEventStream(), (Point{900, 600}));
  EXPECT_EQ(user_.inputFocus(), focus);
  EXPECT_FALSE(somebodyElseGetsTheKeyboard());
  EXPECT_FALSE(other_.grabPointer());
  close(panel);
  EXPECT_TRUE(user_.nothingIsGrabbed());
  user_.tap(key::q);
  EXPECT_THAT(keysSeen(), IsEmpty());
}

TEST_F(OverlayPanelTest, TellsWhatKeysTypeAndWhichModifiersAreHeld) {
  auto panel = openPanel();
  user_.tap(key::capsLock);
  user_.tap(key::numLock);
  user_.keyDown(key::control);
  user_.keyDown(key::shift);
  user_.tap(key::q);
  drain();
  ASSERT_EQ(keyEvents_.size(), 2U) << "modifier keys are no key-downs";
  EXPECT_EQ(keyEvents_[0].keyCode, 12);
  EXPECT_EQ(keyEvents_[0].characters, "q") << "Shift against Caps Lock; Control changes nothing";
  EXPECT_EQ(keyEvents_[0].charactersIgnoringModifiers, "Q");
  EXPECT_EQ(keyEvents_[0].modifierFlags, event_flags::kControl | event_flags::kShift);
  EXPECT_EQ(monitors_.currentModifierFlags(), event_flags::kControl | event_flags::kShift);
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

TEST_F(OverlayPanelTest, FlagsMonitorsSeeModifiersGoAndLocksNever) {
  ASSERT_TRUE(registerHotkey(kSpace, kControlOption));
  std::vector<std::uint64_t> flags;
  pressChord();
  drain();
  auto panel = openPanel();
  const auto monitor = monitors_.addLocalMonitor(kFlagsChangedMask, [&](const KeyEvent& event) {
    flags.push_back(event.modifierFlags);
    return false;
  });
  user_.tap(key::capsLock);
  user_.keyUp(key::space);
  user_.keyUp(key::alt);
  user_.keyUp(key::control);
  drain();
  EXPECT_THAT(flags, testing::Contains(event_flags::kControl));
  EXPECT_EQ(flags.back(), 0U);
  EXPECT_THAT(flags, testing::Not(testing::Contains(testing::Eq(event_flags::kShift))));
}

TEST_F(OverlayPanelTest, TheFirstMonitorDecidesBeforeLaterOnes) {
  keyMonitor_ =
      monitors_.addLocalMonitor(kKeyDownAndKeyUpMask, [](const KeyEvent& event) { return event.keyCode == kSpace; });
  const auto later = monitors_.addLocalMonitor(kKeyDownAndKeyUpMask, [this](const KeyEvent& event) {
    keyEvents_.push_back(event);
    return true;
  });
  auto panel = openPanel();
  user_.tap(key::space);
  user_.tap(key::q);
  EXPECT_THAT(keysSeen(), ElementsAre("down q", "up q"));
}

TEST_F(OverlayPanelTest, WaitsForAKeyboardThatAnotherClientHoldsAsLongAsAKeyIsPressed) {
  ASSERT_TRUE(other_.grabKeyboard());
  auto panel = openPanel();
  const auto letGo = std::chrono::steady_clock::now() + std::chrono::milliseconds(700);
  ASSERT_TRUE(eventually([&] { return sink_.lost > 0 || std::chrono::steady_clock::now() >= letGo; }));
  other_.ungrabKeyboard();
  ASSERT_TRUE(eventually([&] { return !somebodyElseGetsTheKeyboard(); }));
  user_.tap(key::q);
  EXPECT_THAT(keysSeen(), ElementsAre("down q", "up q"));
  EXPECT_EQ(sink_.lost, 0);
}

TEST_F(OverlayPanelTest, LearnsWhereThePointerWentWhileAnotherClientHeldIt) {
  ASSERT_TRUE(other_.grabPointer());
  auto panel = openPanel();
  user_.movePointer({700, 500});
  EXPECT_THAT(sink_.moves, IsEmpty());
  other_.ungrabPointer();
  EXPECT_TRUE(eventually([&] { return !sink_.moves.empty(); }));
  EXPECT_THAT(sink_.moves, ElementsAre(Point{600, 400}));
}

TEST_F(OverlayPanelTest, GivesUpWhenThePointerStaysElsewhere) {
  ASSERT_TRUE(other_.grabPointer());
  auto panel = openPanel();
  ASSERT_TRUE(eventually([&] { return sink_.lost == 1; }));
  drain();
  EXPECT_TRUE(somebodyElseGetsTheKeyboard());
  close(panel);
  EXPECT_EQ(sink_.lost, 1);
}

TEST_F(OverlayPanelTest, IsClosedWhileItStillWaits) {
  ASSERT_TRUE(other_.grabKeyboard());
  openPanel().reset();
  other_.ungrabKeyboard();
  auto next = openPanel();
  EXPECT_FALSE(somebodyElseGetsTheKeyboard());
  close(next);
  EXPECT_TRUE(user_.nothingIsGrabbed());
  EXPECT_EQ(sink_.lost, 0);
}

TEST_F(OverlayPanelTest, ANewerPanelKeepsTheGrabWhenTheOlderGoes) {
  auto first = openPanel();
  auto second = openPanel();
  close(first);
  EXPECT_FALSE(somebodyElseGetsTheKeyboard());
}

TEST_F(OverlayPanelTest, TheWindowBeneathSeesNoHalfClick) {
  other_.coverArea(0, 0, 1280, 800);
  user_.movePointer({400, 300});
  auto panel = openPanel();
  Bystander mouse(server_.display());
  const auto button = [&](std::uint8_t type, std::uint8_t number) {
    xcb_test_fake_input(mouse.get(), type, number, XCB_CURRENT_TIME, mouse.root(), 0, 0, 0);
    mouse.sync();
  };
  button(XCB_BUTTON_PRESS, 4);
  button(XCB_BUTTON_RELEASE, 4);
  button(XCB_BUTTON_PRESS, 1);
  drain();
  EXPECT_THAT(sink_.presses, ElementsAre(Point{300, 200})) << "the wheel is no click";
  close(panel);
  EXPECT_FALSE(user_.nothingIsGrabbed());
  button(XCB_BUTTON_RELEASE, 1);
  EXPECT_TRUE(eventually([&] { return user_.nothingIsGrabbed(); }));
  EXPECT_THAT(other_.eventTypes(), IsEmpty());
  button(XCB_BUTTON_PRESS, 1);
  button(XCB_BUTTON_RELEASE, 1);
  EXPECT_THAT(other_.eventTypes(), ElementsAre(XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE));
}

TEST_F(OverlayPanelTest, PaintsOnlyWhatChangedAndLeavesTransparentPartsOpen) {
  const Capture desktop = capture(kArea);
  auto panel = openTwoLayers([](OverlayPanel& made) { made.display(); });
  Capture shown = capture(kArea);
  EXPECT_EQ(shown.at(110, 150), SolidRasterizer::color(0));
  EXPECT_EQ(shown.at(200, 150), desktop.at(200, 150)) << "between the layers";
  EXPECT_EQ(shown.at(290, 150), SolidRasterizer::color(0));
  panel->setLayerState(1, 1);
  panel->display();
  shown = capture(kArea);
  EXPECT_EQ(shown.at(110, 150), SolidRasterizer::color(0));
  EXPECT_EQ(shown.at(290, 150), SolidRasterizer::color(1));
  close(panel);
  EXPECT_EQ(capture(kArea), desktop);
}

TEST_F(OverlayPanelTest, WithoutACompositorWhatWasBeneathShinesThrough) {
  cover({0, 0, 640, 480});
  const auto panel = openTwoLayers([](OverlayPanel& made) {
    made.setLayerState(1, SolidRasterizer::kTranslucent);
    made.display();
  });
  const Capture shown = capture(kArea);
  EXPECT_EQ(shown.at(110, 150), SolidRasterizer::color(0));
  EXPECT_EQ(shown.at(290, 150), 0x40BF40U) << "half of the window's green below half of grey";
  expectCoveredBackdrop();
}

TEST_F(OverlayPanelTest, BeyondTheScreenTheBackdropGoesOnAsAtItsEdge) {
  cover({0, 0, 100, 100});
  const auto panel = openPanel({{-100, -100}, {200, 200}});
  expectCoveredBackdrop();
}

TEST_F(OverlayWithoutSharedMemoryTest, WhereTheScreenCannotBeReadEdgesAreHard) {
  const Capture desktop = capture(kArea);
  const auto panel = openTwoLayers([](OverlayPanel& made) {
    made.setLayerState(1, SolidRasterizer::kTranslucent);
    made.setAppearancePhase(1, 0.5);
    made.display();
  });
  const Capture shown = capture(kArea);
  EXPECT_EQ(shown.at(110, 150), SolidRasterizer::color(0)) << "seen at once, as nothing can fade";
  EXPECT_EQ(shown.at(290, 150), desktop.at(290, 150));
  EXPECT_TRUE(rasterizer_.backdrops.empty());
}

TEST_F(OverlayPanelTest, IsTransparentUnderACompositor) {
  const ChildProcess compositor(compositor_, {{"DISPLAY", server_.display()}});
  waitForCompositor();
  cover({0, 0, 640, 480});
  const auto panel = openTwoLayers();
  EXPECT_TRUE(eventually([&] { return looksOpenBetweenItsParts(); }));
  expectCoveredBackdrop();  // read from what the compositor shows
}

TEST_F(OverlayPanelTest, StaysOpenBetweenItsPartsWhenTheCompositorComesAndGoes) {
  cover({0, 0, 640, 480});
  const auto panel = openTwoLayers();
  const auto looksRight = [this] { return looksOpenBetweenItsParts(); };
  EXPECT_TRUE(eventually(looksRight));
  std::optional<ChildProcess> compositor;
  compositor.emplace(compositor_, std::map<std::string, std::string>{{"DISPLAY", server_.display()}});
  waitForCompositor();
  EXPECT_TRUE(eventually(looksRight));
  EXPECT_TRUE(eventually([&] { return !isShaped(); })) << "the compositor may paint all of it";
  compositor.reset();
  EXPECT_TRUE(eventually([&] { return isShaped(); }));
  EXPECT_TRUE(eventually(looksRight));
}

TEST_F(OverlayWithoutSharedMemoryTest, PutsALargePictureInSeveralRequests) {
  const Rect frame{{100, 0}, {800, 800}};
  const auto panel = openTwoLayers([](OverlayPanel&) {}, frame);
  panel->setLayerState(1, 1);
  panel->display();
  const Capture shown = capture({100, 0, 800, 800});
  for (const int y : {0, 300, 600, 799}) {
    EXPECT_EQ(shown.at(100, y), SolidRasterizer::color(0));
    EXPECT_EQ(shown.at(899, y), SolidRasterizer::color(1));
  }
}

TEST_F(OverlayPanelTest, ComesBackAfterBeingCoveredAndStaysOnTop) {
  auto panel = openPanel();
  other_.coverArea(0, 0, 640, 480);
  EXPECT_TRUE(eventually([&] { return capture(kArea).at(200, 200) == SolidRasterizer::color(0); }));

  const xcb_window_t note = xcb_generate_id(connection_.get());
  const std::uint32_t values[] = {Bystander::kColor, 1};
  xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, note, connection_.root(), 190, 190, 20, 20, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT,
                    values);
  xcb_map_window(connection_.get(), note);
  drain();
  EXPECT_EQ(capture(kArea).at(200, 200), Bystander::kColor) << "a window of our own may lie above";
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

TEST_F(OverlayPanelTest, ShowsAHandOnlyWhileThePointerIsOurs) {
  auto panel = openPanel();
  pointer_.setCursor(CursorShape::pointingHand);
  pointer_.setCursor(CursorShape::arrow);
  pointer_.setCursor(CursorShape::pointingHand);
  close(panel);
  pointer_.setCursor(CursorShape::arrow);
  EXPECT_TRUE(user_.nothingIsGrabbed());
}

}  // namespace
}  // namespace rondora::live
