#include "pie/geometry/sector_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "doubles/fake_devices.h"
#include "doubles/fake_overlay_panels.h"
#include "doubles/virtual_time.h"
#include "pie/controller/mouse_tracking_ns_view.h"
#include "pie/geometry/ring_layout.h"

namespace rondora {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using Sector = std::optional<std::size_t>;

class TrackingViewTest : public testing::Test {
 protected:
  MouseTrackingNSView view(std::size_t sectorCount, double rotationDegrees, std::size_t itemCount = 4) {
    RingLayout layout;
    layout.outerRadius = 150;
    layout.innerRadius = 76;
    layout.sectorCount = sectorCount;
    layout.rotationDegrees = rotationDegrees;
    return {haptics, pointer, layout, itemCount};
  }
  static Point at(const MouseTrackingNSView& view, Point offset) { return view.layout().center() + offset; }
  static Sector hover(const MouseTrackingNSView& view, Point offset) { return view.hoverSectorIndex(at(view, offset)); }

  VirtualTime time;
  FakeHaptics haptics;
  FakeOverlayPanels pointer{time};
};

TEST_F(TrackingViewTest, SectorsRunClockwiseFromTheTop) {
  struct Case {
    std::size_t sectors;
    double rotation;
    Point offset;
    Sector expected;
  };
  const Case cases[] = {{4, 0, {0, -100}, 0},
                        {4, 0, {100, 0}, 1},
                        {4, 0, {0, 100}, 2},
                        {4, 0, {-100, 0}, 3},
                        {4, 45, {0, -100}, 3},
                        {4, -45, {0, -100}, 0},
                        {4, 45 + 3600, {0, -100}, 3},
                        {4, 1e300, {0, -100}, hover(view(4, std::fmod(1e300, 360)), {0, -100})},
                        {4, kInfinity, {1, -100}, 0},
                        {4, kNaN, {1, -100}, 0},
                        {4, 0, {0, -10000}, 0},
                        {1, 77, {0, 100}, 0},
                        {0, 0, {0, 100}, 0},
                        {4, 0, {0, -76}, 0},
                        {4, 0, {0, -75.999}, std::nullopt},
                        {36, 0, {-0.001, -100}, 35}};
  for (const Case& c : cases) {
    EXPECT_EQ(hover(view(c.sectors, c.rotation), c.offset), c.expected)
        << c.sectors << " sectors turned by " << c.rotation << ", at " << c.offset.x << "," << c.offset.y;
  }
}

TEST(SectorGeometryTest, RoundingNeverLeavesTheTurn) {
  EXPECT_LT(reducedToFullTurn(-1e-20), kFullTurn);
  EXPECT_EQ(sectorIndexAt(reducedToFullTurn(-1e-20), 4), 3u);
  EXPECT_EQ(sectorIndexAt(kFullTurn, 4), 3u);
}

TEST_F(TrackingViewTest, EveryPointOutsideTheHubBelongsToTheSectorAroundIt) {
  std::mt19937_64 random(7);
  const auto uniform = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
  for (int round = 0; round < 20000; ++round) {
    const auto sectors = std::uniform_int_distribution<std::size_t>(1, 40)(random);
    const double rotation = uniform(-1000, 1000);
    const auto index = std::uniform_int_distribution<std::size_t>(0, sectors - 1)(random);
    const double start = startAngle(index, sectors, rotation);
    const double end = endAngle(index, sectors, rotation);
    const double angle = start + (end - start) * uniform(0.001, 0.999);
    const double distance = std::exp(uniform(std::log(77.0), std::log(1e5)));
    for (const double turn : {0.0, 33.0}) {
      const double turned = angle + turn * kPi / 180;
      const Point offset = Point{std::cos(turned), std::sin(turned)} * distance;
      ASSERT_EQ(hover(view(sectors, rotation + turn), offset), index) << sectors << " sectors turned by " << rotation;
    }
  }
}

TEST(SnappingTest, LandsOnHalvesOfASector) {
  struct Case {
    double raw;
    std::int64_t sectors;
    double expected;
  };
  const Case cases[] = {{100, 4, 90},    {190, 4, 180},  {-180, 4, 180},    {22.4, 4, 0},  {22.5, 4, 45},
                        {-22.5, 4, -45}, {540, 4, 180},  {-22.5, 8, -22.5}, {100, 1, 180}, {89, 1, 0},
                        {190, 0, -170},  {-180, 0, 180}, {721.5, -3, 1.5},  {kNaN, 4, 0},  {kInfinity, 0, 0}};
  for (const Case& c : cases) {
    EXPECT_DOUBLE_EQ(snappedAestheticRotationDegrees(c.raw, c.sectors), c.expected) << c.raw << " of " << c.sectors;
  }
  EXPECT_FALSE(std::signbit(snappedAestheticRotationDegrees(-1, 4)));
  const double huge = snappedAestheticRotationDegrees(-1e300, 7);
  EXPECT_GT(huge, -180);
  EXPECT_LE(huge, 180);
}

TEST(RingLayoutTest, TakesTheMenusOwnSizesTimesItsScale) {
  PieMenu menu;
  menu.appearanceScale = 1.5;
  const RingLayout layout = RingLayout::make(menu, 10, 6, 400);
  EXPECT_DOUBLE_EQ(layout.outerRadius, 225);
  EXPECT_DOUBLE_EQ(layout.innerRadius, 114);
  EXPECT_DOUBLE_EQ(layout.halfSide(), std::floor(layout.halfSide()));
}

}  // namespace
}  // namespace rondora
