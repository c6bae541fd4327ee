#include <gmock/gmock.h>

#include <cstdlib>
#include <sstream>
#include <vector>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::SizeIs;

class OpeningWaitsTest : public EndToEndTest {
 protected:
  void SetUp() override {
    EndToEndTest::SetUp();
    setenv("REPLY_WAITS", log().c_str(), 1);
    setenv("LD_PRELOAD", RONDORA_REPLY_WAITS, 1);
    start(document({menu("Clock", kControlAltSpace, snippetItems("Clock", 12), -15)}));
    unsetenv("LD_PRELOAD");
  }
  std::filesystem::path log() const { return desktop_.configHome() / "reply_waits"; }

  /// The replies that an opening waits for between the first key press and the first mapped window since `start`.
  testing::AssertionResult opening(std::size_t start, std::vector<std::string>& waits) const {
    std::istringstream lines(readFile(log()).substr(start));
    bool hasKey = false;
    for (std::string line; std::getline(lines, line);) {
      if (line == "key") hasKey = true;
      if (line == "map") return hasKey ? testing::AssertionSuccess() : testing::AssertionFailure() << "no key press";
      if (hasKey && line.starts_with("wait ")) waits.push_back(line.substr(5));
    }
    return testing::AssertionFailure() << "no mapped window";
  }
};

/// The terminal has the focus, so the program receives the key by its passive grab.
TEST_F(OpeningWaitsTest, HotkeyWaitsForTheSnapshotOnly) {
  ASSERT_TRUE(open()) << "the first fake key has every client read the keyboard map";
  releaseChord();
  expectAtRest();
  for (int round = 0; round < 3; ++round) {
    client_.movePointer({kSomewhere.x + 20 * round, kSomewhere.y});
    const std::size_t start = readFile(log()).size();
    ASSERT_TRUE(open());
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
    ASSERT_TRUE(waitForRest());
    std::vector<std::string> waits;
    ASSERT_TRUE(opening(start, waits));
    constexpr const char* kGetImage = "core 73";
    constexpr const char* kShmGetImage = "MIT-SHM 4";
    EXPECT_THAT(waits, Each(AnyOf(kGetImage, kShmGetImage))) << "round " << round;
    EXPECT_THAT(waits, SizeIs(testing::Le(1))) << "round " << round;
  }
}

}  // namespace
}  // namespace rondora::live
