#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr int kOpenings = 200;

class EnduranceTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    start(document({menu("Main", kControlAltSpace, snippetItems("Main", 6))}));
  }

  /// Opens the ring and leaves it in one of the ways that choose nothing.
  void openAndLeave(int way) {
    holdChord(key::space);
    ASSERT_TRUE(program_->waitForRing());
    if (way % 3 == 1) client_.tap(key::escape);
    if (way % 3 == 2) client_.click();
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
  }

  std::size_t held(const std::string& type) { return client_.resourceCount(program_->pid(), type); }
};

INSTANTIATE_TEST_SUITE_P(Live, EnduranceTest, testing::Values(WindowManager::openbox, WindowManager::xfwm4), nameOf);

TEST_P(EnduranceTest, ManyOpeningsLeaveTheDesktopAsItWas) {
  for (int i = 0; i < 6; ++i) ASSERT_NO_FATAL_FAILURE(openAndLeave(i));  // what is made once is made now
  expectAtRest();
  const auto active = client_.activeWindow();
  const auto topLevels = client_.topLevels().size();
  const auto windows = held("WINDOW"), pixmaps = held("PIXMAP"), grabs = held("PASSIVE GRAB");

  for (int i = 0; i < kOpenings; ++i) ASSERT_NO_FATAL_FAILURE(openAndLeave(i)) << "opening " << i;

  expectAtRest();
  EXPECT_EQ(client_.activeWindow(), active);
  EXPECT_EQ(client_.topLevels().size(), topLevels);
  EXPECT_LE(held("WINDOW"), windows);
  EXPECT_LE(held("PIXMAP"), pixmaps);
  EXPECT_EQ(held("PASSIVE GRAB"), grabs);
  choose(0, -kMiddleOfRing);
  EXPECT_TRUE(client_.clipboardText().has_value() || waitUntil([&] { return client_.clipboardText().has_value(); }));
}

}  // namespace
}  // namespace rondora::live
