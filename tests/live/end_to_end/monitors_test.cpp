#include <iterator>
#include <random>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr Area kRoot{0, 0, 1280, 800};
constexpr Area kLeft{0, 0, 500, 800};
constexpr Area kRight{500, 150, 780, 500};
constexpr Position kOnLeft{250, 400};
constexpr Position kOnRight{900, 400};
constexpr Position kCorners[] = {{0, 0}, {1279, 0}, {2, 799}, {1279, 799}};
constexpr int kDockHeight = 60;

/// Two or three monitors beside each other, of unlike size and offset, with dead areas between and around them.
std::vector<Area> randomLayout(std::mt19937& random) {
  const auto between = [&](int least, int most) { return std::uniform_int_distribution(least, most)(random); };
  const int count = between(2, 3);
  const int room = kRoot.width / count;
  std::vector<Area> monitors;
  for (int i = 0; i < count; ++i) {
    const int width = between(room / 2, room), height = between(kRoot.height / 3, kRoot.height);
    monitors.push_back({i * room + between(0, room - width), between(0, kRoot.height - height), width, height});
  }
  std::shuffle(monitors.begin(), monitors.end(), random);
  return monitors;
}

class MonitorsTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    Document huge = menu("Huge", kControlAltB, snippetItems("Huge", 6));
    huge["menuRadius"] = 5000;
    start(document({menu("Main", kControlAltSpace, snippetItems("Main", 4), -45), huge}));
  }

  void leave() {
    client_.tap(key::escape);
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
  }

  /// The side of a ring that would be larger than any monitor.
  int boundedSide(Position position) {
    client_.movePointer(position);
    holdChord(key::b);
    if (!program_->waitForRing()) return 0;
    const int side = program_->ring()->area.width;
    leave();
    return side;
  }
};

INSTANTIATE_TEST_SUITE_P(Live, MonitorsTest, testing::Values(WindowManager::openbox, WindowManager::xfwm4), nameOf);

TEST_P(MonitorsTest, CentreIsAtThePointerOnEveryLayout) {
  constexpr int kLayouts = 5;
  constexpr int kOpenings = 10;
  std::mt19937 random(20261121);
  std::uniform_int_distribution<int> anyX(0, kRoot.width - 1), anyY(0, kRoot.height - 1);
  for (int layout = 0; layout < kLayouts; ++layout) {
    desktop_.setMonitors(randomLayout(random));
    for (int opening = 0; opening < kOpenings; ++opening) {
      const bool isCorner = layout == 0 && opening < std::ssize(kCorners);
      const Position position = isCorner ? kCorners[opening] : Position{anyX(random), anyY(random)};
      client_.movePointer(position);
      holdChord(key::space);
      ASSERT_TRUE(program_->waitForRing()) << "layout " << layout << ", opening " << opening;
      EXPECT_LE(offCentre(program_->ring()->area, position), 1) << "layout " << layout << ", opening " << opening;
      EXPECT_EQ(client_.pointer(), position);
      ASSERT_NO_FATAL_FAILURE(leave());
    }
  }
  expectAtRest();
}

TEST_P(MonitorsTest, AChangeOfTheMonitorsClosesTheRingAndChoosesNothing) {
  desktop_.setMonitors({kLeft, kRight});
  client_.movePointer(kSomewhere);
  ASSERT_TRUE(open());
  pointTo(0, -kMiddleOfRing);
  desktop_.setMonitors({kRight, kLeft, {0, 780, 300, 20}});
  EXPECT_TRUE(program_->waitForNoRing());
  releaseChord();
  expectAtRest();
  EXPECT_EQ(client_.clipboardText(), std::nullopt);
  choose(kMiddleOfRing, 0);
  EXPECT_TRUE(waitForClipboard("Main 1"));
}

TEST_P(MonitorsTest, TheLargestRingFitsWhatPanelsLeaveOfTheMonitorUnderThePointer) {
  desktop_.setMonitors({kLeft, kRight});
  const int onLeft = boundedSide(kOnLeft), onRight = boundedSide(kOnRight);
  EXPECT_EQ(onLeft, onRight) << "both are 500 pixels across";

  const auto configuration = desktop_.configHome() / "dock";
  writeFile(configuration,
            "panel_items = C\npanel_monitor = 2\npanel_position = bottom center horizontal\npanel_size = 100% " +
                std::to_string(kDockHeight) + "\n");
  auto dock = desktop_.start({"tint2", "-c", configuration});
  const int shorter = onRight * (kRight.height - kDockHeight) / kRight.height;
  int side = 0;
  EXPECT_TRUE(waitUntil([&] { return std::abs((side = boundedSide(kOnRight)) - shorter) <= onRight / 50; }))
      << side << " instead of " << shorter;
  EXPECT_EQ(boundedSide(kOnLeft), onLeft) << "the panel is on the other monitor";

  dock.reset();
  EXPECT_TRUE(waitUntil([&] { return boundedSide(kOnRight) == onRight; })) << "the panel is gone";
  desktop_.setMonitors({kRoot});
  EXPECT_GT(boundedSide(kOnLeft), onLeft * 5 / 4);
}

}  // namespace
}  // namespace rondora::live
