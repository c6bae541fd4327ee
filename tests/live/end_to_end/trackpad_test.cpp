#include "live/end_to_end/end_to_end_test.h"
#include "trackpads/mock_trackpads.h"

namespace rondora::live {
namespace {

using std::chrono_literals::operator""s;

/// A computer with a trackpad.
class ComputerWithTrackpadTest : public EndToEndTest {
 protected:
  void startWithMenu(Hotkey hotkey, int fingers) {
    Document tapped = menu("Tapped", hotkey, snippetItems("Tapped", 4), -45);
    tapped["trackpadFingerCount"] = fingers;
    std::vector<std::string> command = kernel_.environment();
    command.insert(command.begin(), "env");
    command.push_back(RunningProgram::file());
    program_.emplace(desktop_, client_, document({tapped}).dump(), Introduction::seen, command);
  }

  MockTrackpads kernel_;
  MockTrackpad& trackpad_ = kernel_.connect(5);
};

// Super+Tab, because only the hotkeys of the event tap make the welcome return.
TEST_F(ComputerWithTrackpadTest, WelcomeReturnsOnlyWhenATapIsWantedButUnreadable) {
  constexpr Hotkey kSuperTab{48, 0x100};
  kernel_.withhold(5);
  startWithMenu(kSuperTab, 0);
  EXPECT_TRUE(waitForRest());
  EXPECT_TRUE(program_->managedWindows().empty());
  startWithMenu(kSuperTab, 3);
  EXPECT_TRUE(waitForActive("Welcome to Rondora"));
  kernel_.grant(5);
  EXPECT_TRUE(waitUntil([&] { return program_->managedWindows().empty(); })) << "all is granted";
}

/// A menu opens with three fingers.
class TrackpadTest : public ComputerWithTrackpadTest {
 protected:
  TrackpadTest() { startWithMenu(kControlAltSpace, 3); }

  std::ptrdiff_t starts(const std::string& devices) const {
    std::istringstream log(readFile(desktop_.logFile("env")));
    const std::string expected = "trackpad gesture: 3-finger tap on " + devices + " device(s)";
    std::ptrdiff_t count = 0;
    for (std::string line; std::getline(log, line);) count += line.find(expected) == std::string::npos ? 0 : 1;
    return count;
  }
};

TEST_F(TrackpadTest, TapOpensTheRingAtThePointerAndAClickRunsTheItem) {
  ASSERT_TRUE(waitUntil([&] { return trackpad_.isOpened(); }));
  trackpad_.tap(3, 1s);
  ASSERT_TRUE(program_->waitForRing());
  const Area ring = program_->ring()->area;
  EXPECT_EQ((Position{ring.x + ring.width / 2, ring.y + ring.height / 2}), kSomewhere);
  program_->settledPicture();
  pointTo(kMiddleOfRing, 0);
  client_.click();
  EXPECT_TRUE(waitForClipboard("Tapped 1"));
  expectAtRest();

  trackpad_.tap(4, 3s);
  trackpad_.tap(3, 5s);
  ASSERT_TRUE(program_->waitForRing());
  program_->settledPicture();
  trackpad_.tap(3, 7s);
  expectAtRest();
  EXPECT_EQ(client_.clipboardText(), "Tapped 1");
}

TEST_F(TrackpadTest, TrackpadsThatArriveAreReadAndAllOfThemAfterWaking) {
  EXPECT_TRUE(waitUntil([&] { return starts("1") == 1; }));
  MockTrackpad& second = kernel_.connect(12);
  EXPECT_TRUE(waitUntil([&] { return starts("2") == 1 && second.isOpened(); }));
  second.tap(3, 1s);
  EXPECT_TRUE(program_->waitForRing());
  client_.tap(key::escape);
  EXPECT_TRUE(program_->waitForNoRing());
  ASSERT_TRUE(desktop_.outputOf({"gdbus", "emit", "--session", "--object-path", "/org/freedesktop/login1", "--signal",
                                 "org.freedesktop.login1.Manager.PrepareForSleep", "false"}));
  EXPECT_TRUE(waitUntil([&] { return starts("2") == 2; }));
  trackpad_.tap(3, 3s);
  EXPECT_TRUE(program_->waitForRing());
  client_.tap(key::escape);
  EXPECT_TRUE(program_->waitForNoRing()) << "a tap would close it too";
  kernel_.disconnect(5);
  second.tap(3, 5s);
  EXPECT_TRUE(program_->waitForRing());
}

}  // namespace
}  // namespace rondora::live
