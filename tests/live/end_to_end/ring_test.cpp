#include <algorithm>
#include <array>
#include <csignal>
#include <tuple>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr int kMaxDistance = 260;

/// The distances up to which the two differ, from the position to the right, down, to the left and up.
std::array<int, 4> reaches(const Capture& before, const Capture& after, Position position) {
  constexpr Position kDirections[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  std::array<int, 4> found{};
  for (std::size_t i = 0; i < found.size(); ++i) {
    for (int distance = 0; distance < kMaxDistance; ++distance) {
      const int x = position.x + distance * kDirections[i].x, y = position.y + distance * kDirections[i].y;
      if (before.at(x, y) != after.at(x, y)) found[i] = distance;
    }
  }
  return found;
}

class RingTest : public UnderWindowManager {
 protected:
  /// Twelve sectors with the first one's middle at the top (0 up, 3 right, 6 down, 9 left), and two rings of four.
  void SetUp() override {
    UnderWindowManager::SetUp();
    start(document({menu("Clock", kControlAltSpace, snippetItems("Clock", 12), -15),
                    menu("Four", kControlAltB, snippetItems("Four", 4), -45),
                    menu("Plain", kF9, snippetItems("Plain", 4), -45)}));
  }

  /// Opens the ring and leaves it without a choice: by Escape, by another hotkey, by a click in the hub or by a release
  /// there.
  void openAndLeave(int way) {
    client_.movePointer(kSomewhere);
    holdChord(key::space);
    ASSERT_TRUE(program_->waitForRing());
    if (way % 4 < 2) pointTo(kMiddleOfRing, 0);
    if (way % 4 == 0) client_.tap(key::escape);
    if (way % 4 == 1) client_.tap(key::b);
    if (way % 4 == 2) client_.click();
    if (way % 4 < 3) {
      EXPECT_TRUE(program_->waitForNoRing());
    }
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
  }
  std::size_t held(const std::string& type) { return client_.resourceCount(program_->pid(), type); }

  /// Long enough for a key that is down to have been repeated many times.
  void letKeysRepeat() { client_.letServerRun(std::chrono::milliseconds(250)); }
};

INSTANTIATE_TEST_SUITE_P(Live, RingTest, testing::Values(WindowManager::openbox, WindowManager::xfwm4), nameOf);

TEST_P(RingTest, CentreIsAtThePointerToThePixel) {
  for (const Position position : {Position{500, 380}, Position{641, 403}, Position{333, 508}}) {
    client_.movePointer(position);
    const Area around{position.x - kMaxDistance, position.y - kMaxDistance, 2 * kMaxDistance, 2 * kMaxDistance};
    const Capture before = program_->settledCapture(around);
    ASSERT_TRUE(open());
    EXPECT_EQ(client_.pointer(), position);
    const auto painted = reaches(before, client_.capture(around), position);
    const auto [least, most] = std::ranges::minmax(painted);
    EXPECT_TRUE(least > kMiddleOfRing && most - least <= 2) << testing::PrintToString(painted);
    releaseChord();
    expectAtRest();
    ASSERT_TRUE(waitUntil([&] { return client_.capture(around) == before; })) << "the ring left traces";
  }
}

/// The pointer moves on after the release, and the program, which was stopped, reads all events at once.
TEST_P(RingTest, ReleaseAndClickChooseByTheirOwnPosition) {
  const xcb_window_t active = client_.activeWindow(), focus = client_.inputFocus();
  const auto expectUntouched = [&] {
    EXPECT_EQ(client_.activeWindow(), active);
    EXPECT_EQ(client_.inputFocus(), focus);
  };
  ASSERT_TRUE(open());
  expectUntouched();
  kill(program_->pid(), SIGSTOP);
  pointTo(0, -kMiddleOfRing);
  releaseChord();
  pointTo(0, kMiddleOfRing);
  kill(program_->pid(), SIGCONT);
  EXPECT_TRUE(waitForClipboard("Clock 0"));
  expectAtRest();

  client_.movePointer(kSomewhere);
  ASSERT_TRUE(open());
  client_.movePointer({kSomewhere.x, 795});  // on the panel
  client_.click();
  EXPECT_TRUE(waitForClipboard("Clock 6"));
  releaseChord();
  expectAtRest();
  expectUntouched();
}

TEST_P(RingTest, QuickSelectKeysMatchByTextAndByPlace) {
  const std::tuple<const char*, std::uint8_t, const char*> cases[] = {
      {"us", key::digit2, "Clock 2"}, {"us", key::q, "Clock 10"}, {"fr", key::a, "Clock 10"},  // types q
      {"fr", key::digit3, "Clock 3"},                                                          // a quotation mark
      {"fr", key::q, "Clock 10"},                                                              // a, which is no label
      {"us", key::digit0, "Clock 0"},
  };
  for (const auto& [layout, keyCode, chosen] : cases) {
    ASSERT_TRUE(desktop_.outputOf({"setxkbmap", layout}));
    ASSERT_TRUE(open()) << layout;
    client_.tap(keyCode);
    EXPECT_TRUE(waitForClipboard(chosen)) << layout << ", key code " << int(keyCode);
    releaseChord();
    expectAtRest();
  }
}

TEST_P(RingTest, TappingTheKeyAgainStepsAndWraps) {
  ASSERT_TRUE(open(key::b));
  Capture picture = program_->settledPicture();
  for (int step = 0; step < 6; ++step) {
    client_.tap(key::b);
    const auto next = program_->pictureAfterChange(picture);
    ASSERT_TRUE(next) << "step " << step << " changed nothing";
    picture = *next;
  }
  releaseChord();
  EXPECT_TRUE(waitForClipboard("Four 1")) << "four steps are a full turn";
  expectAtRest();
}

/// A fast key repeat and a slow release. Control is released first: Alt and Space, which remain, open a menu of the
/// window manager.
TEST_P(RingTest, HeldKeysNeitherStepNorType) {
  ASSERT_TRUE(desktop_.outputOf({"xset", "r", "rate", "60", "100"}));
  constexpr std::uint8_t kChord[] = {key::control, key::alt, key::space};
  for (const std::uint8_t code : kChord) client_.keyDown(code);
  ASSERT_TRUE(program_->waitForRing());
  const Capture opened = program_->settledPicture();
  letKeysRepeat();
  EXPECT_TRUE(client_.capture(opened.area) == opened) << "the held key stepped";
  pointTo(0, -kMiddleOfRing);
  for (const std::uint8_t code : kChord) {
    client_.keyUp(code);
    EXPECT_TRUE(program_->waitForNoRing());
    letKeysRepeat();
  }
  EXPECT_TRUE(waitForClipboard("Clock 0"));

  for (const std::uint8_t ending : {key::digit3, key::escape}) {
    ASSERT_TRUE(open());
    client_.keyDown(ending);
    EXPECT_TRUE(program_->waitForNoRing());
    releaseChord();
    letKeysRepeat();
    client_.keyUp(ending);
  }
  EXPECT_TRUE(waitForClipboard("Clock 3"));

  client_.keyDown(key::f9);
  ASSERT_TRUE(program_->waitForRing());
  program_->settledPicture();
  letKeysRepeat();
  pointTo(-kMiddleOfRing, 0);
  client_.keyUp(key::f9);
  EXPECT_TRUE(waitForClipboard("Plain 3")) << "a plain key chooses when it is released";
  expectAtRest();
  EXPECT_EQ(typedText(), "");
}

TEST_P(RingTest, ManyOpeningsChooseNothingAndLeakNothing) {
  constexpr int kOpenings = 200;
  constexpr std::size_t kSlack = 8;  // the snippet preview is created on demand
  ASSERT_TRUE(open());
  pointTo(kMiddleOfRing, 0);
  ASSERT_TRUE(waitUntil([&] { return program_->popups().size() == 2; }));
  EXPECT_GE(program_->popups().back().area.x, kSomewhere.x + 150) << "the preview is on the sector's side";
  releaseChord();
  ASSERT_TRUE(waitForClipboard("Clock 3"));
  for (int i = 0; i < 8; ++i) ASSERT_NO_FATAL_FAILURE(openAndLeave(i));  // fills the caches
  expectAtRest();
  EXPECT_TRUE(program_->popups().empty());
  const auto active = client_.activeWindow();
  const auto topLevels = client_.topLevels().size(), choices = client_.clipboardChanges();
  const auto windows = held("WINDOW"), pixmaps = held("PIXMAP"), grabs = held("PASSIVE GRAB");

  for (int i = 0; i < kOpenings; ++i) ASSERT_NO_FATAL_FAILURE(openAndLeave(i)) << "opening " << i;

  expectAtRest();
  EXPECT_EQ(client_.clipboardChanges(), choices);
  EXPECT_EQ(client_.activeWindow(), active);
  EXPECT_EQ(client_.topLevels().size(), topLevels);
  EXPECT_LE(held("WINDOW"), windows + kSlack);
  EXPECT_LE(held("PIXMAP"), pixmaps + kSlack);
  EXPECT_EQ(held("PASSIVE GRAB"), grabs);

  for (int i = 0; i < 20; ++i) {  // the chord is up before the ring is mapped; a next press may step
    holdChord(key::space);
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
  }
  expectAtRest();
  EXPECT_TRUE(program_->popups().empty());
  choose(0, -kMiddleOfRing);
  EXPECT_TRUE(waitForClipboard("Clock 0"));
}

TEST_P(RingTest, CentreFollowsThePointerOnEveryMonitorLayout) {
  // With dead areas between and around them.
  const std::vector<Area> layouts[] = {{{0, 0, 500, 800}, {500, 150, 780, 500}},
                                       {{640, 0, 640, 480}, {0, 90, 600, 710}},
                                       {{880, 300, 400, 500}, {0, 0, 420, 300}, {430, 80, 440, 700}}};
  constexpr Position kPositions[] = {{0, 0}, {1279, 0}, {2, 799}, {1279, 799}, {250, 401}, {613, 333}, {901, 600}};
  for (const auto& layout : layouts) {
    client_.movePointer(kSomewhere);
    ASSERT_TRUE(open());
    pointTo(0, -kMiddleOfRing);
    desktop_.setMonitors(layout);
    EXPECT_TRUE(program_->waitForNoRing());
    releaseChord();
    for (const Position position : kPositions) {
      client_.movePointer(position);
      holdChord(key::space);
      ASSERT_TRUE(program_->waitForRing());
      const Area ring = program_->ring()->area;
      EXPECT_NEAR(2 * ring.x + ring.width, 2 * position.x, 1);
      EXPECT_NEAR(2 * ring.y + ring.height, 2 * position.y, 1);
      EXPECT_EQ(client_.pointer(), position);
      client_.tap(key::escape);
      releaseChord();
      ASSERT_TRUE(program_->waitForNoRing());
    }
  }
  expectAtRest();
  EXPECT_EQ(client_.clipboardText(), std::nullopt) << "a layout change chose an item";
}

}  // namespace
}  // namespace rondora::live
