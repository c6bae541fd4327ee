#include <gmock/gmock.h>

#include <algorithm>
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

  /// The replies that an opening waits for between the first key press and the first picture since `start`.
  testing::AssertionResult opening(std::size_t start, std::vector<std::string>& waits) const {
    std::istringstream lines(readFile(log()).substr(start));
    bool hasKey = false;
    for (std::string line; std::getline(lines, line);) {
      if (line == "key") hasKey = true;
      if (hasKey && line == "put") return testing::AssertionSuccess();
      if (hasKey && line.starts_with("wait ")) waits.push_back(line.substr(5));
    }
    return testing::AssertionFailure() << "no picture after a key press";
  }
};

/// The terminal has the focus, so the program receives the key by its passive grab.
TEST_F(OpeningWaitsTest, HotkeyWaitsForSnapshotAndGrabsOnly) {
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
    const std::vector<std::string> grabs{"core 31", "core 26", "core 38"};  // and the pointer's position
    std::vector<std::string> beforeGrabs(waits.begin(), std::ranges::search(waits, grabs).begin());
    EXPECT_EQ(waits.size(), beforeGrabs.size() + grabs.size()) << testing::PrintToString(waits);
    constexpr const char* kGetImage = "core 73";
    constexpr const char* kShmGetImage = "MIT-SHM 4";
    EXPECT_THAT(beforeGrabs, Each(AnyOf(kGetImage, kShmGetImage))) << "round " << round;
    EXPECT_THAT(beforeGrabs, SizeIs(testing::Le(1))) << "round " << round;
  }
}

}  // namespace
}  // namespace rondora::live
