#include <algorithm>
#include <csignal>
#include <cstdlib>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

/// Twelve sectors with the first one's middle at the top: 0 up, 3 right, 6 down, 9 left.
Document clockMenu() { return menu("Clock", kControlAltSpace, snippetItems("Clock", 12), -15); }
Document fourMenu() { return menu("Four", kControlAltB, snippetItems("Four", 4), -45); }

/// The smallest area that holds every pixel in which the two differ.
Area differenceOf(const Capture& before, const Capture& after) {
  int left = before.area.width, top = before.area.height, right = -1, bottom = -1;
  for (int y = 0; y < before.area.height; ++y) {
    for (int x = 0; x < before.area.width; ++x) {
      const auto index = static_cast<std::size_t>(y * before.area.width + x);
      if (before.pixels[index] == after.pixels[index]) continue;
      left = std::min(left, x);
      right = std::max(right, x);
      top = std::min(top, y);
      bottom = std::max(bottom, y);
    }
  }
  return {before.area.x + left, before.area.y + top, right - left + 1, bottom - top + 1};
}

bool isReddish(std::uint32_t pixel) {
  const int red = static_cast<int>(pixel >> 16 & 0xFF), green = static_cast<int>(pixel >> 8 & 0xFF);
  return red > green + 40;
}

class RingTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    start(document({clockMenu(), fourMenu(), menu("Plain", kF9, snippetItems("Plain", 4), -45)}));
  }
};

INSTANTIATE_TEST_SUITE_P(Live, RingTest, testing::Values(WindowManager::openbox, WindowManager::xfwm4), nameOf);

TEST_P(RingTest, CentreIsAtThePointerToThePixel) {
  for (const Position position : {Position{500, 380}, Position{641, 403}, Position{333, 508}}) {
    client_.movePointer(position);
    const Area around{position.x - 260, position.y - 260, 520, 520};
    const Capture before = client_.settledCapture(around);
    ASSERT_TRUE(open());
    EXPECT_EQ(client_.pointer(), position);
    EXPECT_LE(offCentre(program_->ring()->area, position), 1);
    const Capture after = client_.capture(around);
    const Area painted = differenceOf(before, after);
    EXPECT_LE(offCentre(painted, position), 2) << painted.width << " x " << painted.height;
    EXPECT_TRUE(isReddish(after.at(position.x + kMiddleOfRing, position.y + 22)));
    releaseChord();
    expectAtRest();
    ASSERT_TRUE(waitUntil([&] { return client_.capture(around) == before; })) << "the ring left traces";
  }
}

TEST_P(RingTest, ReleaseChoosesAndTheActiveWindowNeverChanges) {
  const xcb_window_t active = client_.activeWindow(), focus = client_.inputFocus();
  ASSERT_TRUE(open());
  EXPECT_EQ(client_.activeWindow(), active);
  EXPECT_EQ(client_.inputFocus(), focus);
  pointTo(0, -kMiddleOfRing);
  releaseChord();
  EXPECT_TRUE(waitForClipboard("Clock 0"));
  expectAtRest();
  EXPECT_EQ(client_.activeWindow(), active);
  EXPECT_EQ(client_.inputFocus(), focus);
}

/// The hand goes on after letting go, and the program, which was kept from running, learns of all of it at once.
TEST_P(RingTest, ReleaseChoosesByWhereThePointerWasThen) {
  ASSERT_TRUE(open());
  kill(program_->pid(), SIGSTOP);
  pointTo(0, -kMiddleOfRing);
  releaseChord();
  pointTo(0, kMiddleOfRing);
  kill(program_->pid(), SIGCONT);
  EXPECT_TRUE(waitForClipboard("Clock 0"));
  expectAtRest();
}

TEST_P(RingTest, ClickFarOutsideTheRingChoosesByDirection) {
  ASSERT_TRUE(open());
  client_.movePointer({1270, kSomewhere.y + 5});
  client_.click();
  EXPECT_TRUE(waitForClipboard("Clock 3"));
  releaseChord();
  expectAtRest();
  EXPECT_EQ(client_.title(client_.activeWindow()), "Bystander");

  client_.movePointer(kSomewhere);
  ASSERT_TRUE(open());
  client_.movePointer({kSomewhere.x, 795});
  client_.click();
  EXPECT_TRUE(waitForClipboard("Clock 6"));
  releaseChord();
  expectAtRest();
}

/// A wrong choice would put something on the clipboard before the right one that follows.
TEST_P(RingTest, EscapeTheHubAndAnotherHotkeyChooseNothing) {
  choose(0, -kMiddleOfRing);
  ASSERT_TRUE(waitForClipboard("Clock 0"));
  const std::size_t changesOfFirst = client_.clipboardChanges();
  choose(kMiddleOfRing, 0);
  ASSERT_TRUE(waitForClipboard("Clock 3"));
  const std::size_t changesOfTwo = client_.clipboardChanges();

  client_.movePointer(kSomewhere);
  ASSERT_TRUE(open());
  pointTo(kMiddleOfRing, 0);
  client_.tap(key::escape);
  EXPECT_TRUE(program_->waitForNoRing()) << "after Escape";
  releaseChord();

  client_.movePointer(kSomewhere);
  ASSERT_TRUE(open());
  client_.click();
  EXPECT_TRUE(program_->waitForNoRing()) << "after a click in the hub";
  releaseChord();

  ASSERT_TRUE(open());
  pointTo(kMiddleOfRing, 0);
  client_.tap(key::b);
  EXPECT_TRUE(program_->waitForNoRing()) << "after the other menu's hotkey";
  releaseChord();

  choose(0, 0);  // nothing is under the pointer
  choose(0, kMiddleOfRing);
  EXPECT_TRUE(waitForClipboard("Clock 6"));
  EXPECT_EQ(client_.clipboardChanges(), changesOfTwo + (changesOfTwo - changesOfFirst));
  expectAtRest();
  EXPECT_EQ(client_.title(client_.activeWindow()), "Bystander");
}

TEST_P(RingTest, QuickSelectKeysFollowTheLayoutAndThePlaceOfTheKey) {
  struct Case {
    const char* layout;
    std::uint8_t keyCode;
    const char* chosen;
  };
  const Case cases[] = {
      {"us", key::digit2, "Clock 2"}, {"us", key::q, "Clock 10"},
      {"us", key::digit0, "Clock 0"}, {"fr", key::a, "Clock 10"},  // types q
      {"fr", key::digit3, "Clock 3"},                              // types a quotation mark
      {"fr", key::q, "Clock 10"},                                  // types a, which no sector carries
      {"us", key::digit1, "Clock 1"},
  };
  std::string layout = "us";
  for (const auto& [wanted, keyCode, chosen] : cases) {
    if (wanted != layout) desktop_.setKeyboardLayout(wanted);
    layout = wanted;
    ASSERT_TRUE(open()) << wanted;
    client_.tap(keyCode);
    EXPECT_TRUE(waitForClipboard(chosen)) << wanted << ", key code " << int(keyCode);
    releaseChord();
    expectAtRest();
  }
}

TEST_P(RingTest, SnippetUnderThePointerIsPreviewedBesideTheRing) {
  ASSERT_TRUE(open());
  const auto ring = program_->ring().value();
  const auto preview = [&] {
    auto windows = client_.topLevels();
    std::erase_if(windows, [&](const TopLevel& window) {
      return !window.isViewable || !window.isOverrideRedirect || window.window == ring.window ||
             client_.ownerOf(window.window) != program_->pid();
    });
    return windows;
  };
  EXPECT_TRUE(preview().empty());
  pointTo(kMiddleOfRing, 0);
  ASSERT_TRUE(waitUntil([&] { return preview().size() == 1; }));
  const Area area = preview().front().area;
  EXPECT_GE(area.x, kSomewhere.x + 150) << "beside the ring, on the sector's side";
  EXPECT_LE(std::abs(2 * area.y + area.height - 2 * kSomewhere.y), 2) << "level with the sector";
  client_.tap(key::escape);
  EXPECT_TRUE(waitUntil([&] { return preview().empty(); }));
  releaseChord();
  expectAtRest();
}

TEST_P(RingTest, TappingTheKeyAgainStepsAndWraps) {
  ASSERT_TRUE(open(key::b));
  std::vector<Capture> pictures{program_->settledPicture()};
  for (int step = 0; step < 5; ++step) {
    client_.tap(key::b);
    const auto picture = program_->pictureAfterChange(pictures.back());
    ASSERT_TRUE(picture) << "step " << step << " changed nothing";
    pictures.push_back(*picture);
  }
  EXPECT_TRUE(looksSame(pictures[5], pictures[1])) << "the fifth step is on the first sector again";
  EXPECT_FALSE(looksSame(pictures[5], pictures[2]));
  client_.tap(key::b);
  ASSERT_TRUE(program_->pictureAfterChange(pictures[5]));
  releaseChord();
  EXPECT_TRUE(waitForClipboard("Four 1"));
  expectAtRest();
}

TEST_P(RingTest, PlainKeyIsHeldWhilePointing) {
  client_.keyDown(key::f9);
  ASSERT_TRUE(program_->waitForRing());
  program_->settledPicture();
  pointTo(-kMiddleOfRing, 0);
  client_.keyUp(key::f9);
  EXPECT_TRUE(waitForClipboard("Plain 3"));
  expectAtRest();
}

TEST_P(RingTest, ChordThatIsGoneBeforeTheRingIsUpLeavesNothingOpen) {
  for (int round = 0; round < 20; ++round) {
    holdChord(key::space);
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
  }
  ASSERT_TRUE(program_->staysWithoutRing());
  choose(kMiddleOfRing, 0, key::b);
  EXPECT_TRUE(waitForClipboard("Four 1"));
  expectAtRest();
}

}  // namespace
}  // namespace rondora::live
