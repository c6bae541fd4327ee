#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

class MonitorsTest : public UnderWindowManager {};

INSTANTIATE_TEST_SUITE_P(Live, MonitorsTest, testing::Values(WindowManager::openbox, WindowManager::xfwm4), nameOf);

TEST_P(MonitorsTest, CentreIsAtThePointerOnEveryLayoutAndAChangeClosesTheRing) {
  start(document({menu("Main", kControlAltSpace, snippetItems("Main", 4), -45)}));
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
  EXPECT_EQ(client_.clipboardText(), std::nullopt) << "a change chose something";
}

}  // namespace
}  // namespace rondora::live
