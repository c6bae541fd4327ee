#include "live/end_to_end/end_to_end_test.h"
#include "trackpads/mock_trackpads.h"

namespace rondora::live {
namespace {

using std::chrono_literals::operator""s;

/// A computer with a trackpad, on which a menu opens with three fingers.
class TrackpadTest : public EndToEndTest {
 protected:
  TrackpadTest() {
    Document tapped = menu("Tapped", kControlAltSpace, snippetItems("Tapped", 4), -45);
    tapped["trackpadFingerCount"] = 3;
    std::vector<std::string> command = kernel_.environment();
    command.insert(command.begin(), "env");
    command.push_back(RunningProgram::file());
    program_.emplace(desktop_, client_, document({tapped}).dump(), Introduction::seen, command);
  }

  std::ptrdiff_t starts(const std::string& devices) const {
    std::istringstream log(readFile(desktop_.logFile("env")));
    const std::string expected = "trackpad gesture: 3-finger tap on " + devices + " device(s)";
    std::ptrdiff_t count = 0;
    for (std::string line; std::getline(log, line);) count += line.find(expected) == std::string::npos ? 0 : 1;
    return count;
  }

  MockTrackpads kernel_;
  MockTrackpad& trackpad_ = kernel_.connect(5);
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
  kernel_.disconnect(5);
  second.tap(3, 5s);
  EXPECT_TRUE(program_->waitForRing());
}

}  // namespace
}  // namespace rondora::live
