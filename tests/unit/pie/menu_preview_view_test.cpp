#include "pie/controller/menu_preview_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "doubles/fake_devices.h"
#include "pie/geometry/sector_geometry.h"

namespace rondora {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kTop = -kPi / 2;
using Sector = std::optional<std::size_t>;

double radians(double degrees) { return degrees * kPi / 180; }

TEST(MenuPreviewViewTest, FollowsTheRotationAndTheSingleSector) {
  EXPECT_EQ((MenuPreviewView{4, 45}.absoluteSectorIndex(kTop, 100)), Sector(3));
  EXPECT_EQ((MenuPreviewView{1, 45}.absoluteSectorIndex(kTop, 100)), Sector(0));
  EXPECT_EQ((MenuPreviewView{0, 0}.absoluteSectorIndex(0, 0)), Sector(0));
  EXPECT_EQ((MenuPreviewView{4, 0}.absoluteSectorIndex(kTop + 4 * kPi + radians(45), 100)), Sector(0));
  EXPECT_NEAR((MenuPreviewView{4, 45}.endAngle(0)), radians(45), 1e-12);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double hostile : {nan, 1e300, -1e300, std::numeric_limits<double>::infinity()}) {
    const Sector index = MenuPreviewView{5, hostile}.absoluteSectorIndex(hostile, hostile);
    EXPECT_TRUE(!index || *index < 5u);
  }
}

TEST(MenuPreviewViewTest, AgreesWithTheOverlayOutsideTheDeadZones) {
  std::mt19937_64 random(13);
  const auto uniform = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
  for (int round = 0; round < 40000; ++round) {
    const auto sectors = std::uniform_int_distribution<std::size_t>(2, 40)(random);
    const MenuPreviewView preview{sectors, uniform(-1000, 1000)};
    const double angle = uniform(-kPi, kPi);
    const double radius = std::exp(uniform(-2, 6));
    const double fromFirstEdge = angleFromFirstEdge({std::cos(angle), std::sin(angle)}, preview.rotationDegrees);
    const double width = sectorWidth(sectors);
    const double fromBoundary = std::abs(std::remainder(fromFirstEdge, width));
    // The distance to the boundary's line, capped near the centre; the middle of a narrow sector is always free.
    const bool isNear = radius * std::sin(fromBoundary) < std::min(3.5, 0.95 * radius);
    const bool isMiddle = fromBoundary > width / 2 - 0.001;
    const Sector expected = isNear && !isMiddle ? std::nullopt : Sector(sectorIndexAt(fromFirstEdge, sectors));
    ASSERT_EQ(preview.absoluteSectorIndex(angle, radius), expected)
        << sectors << " sectors turned by " << preview.rotationDegrees << " at " << angle << ", " << radius;
  }
}

TEST(WheelTurnTest, SnapsTheDragAndTicksOncePerStep) {
  FakeHaptics haptics;
  WheelTurn turn(0, radians(170), 4);
  EXPECT_DOUBLE_EQ(turn.rotationDegrees(radians(180), true, haptics), 0);
  EXPECT_TRUE(haptics.performed.empty());
  EXPECT_DOUBLE_EQ(turn.rotationDegrees(radians(-165), true, haptics), 45);  // across the seam of the angle
  EXPECT_DOUBLE_EQ(turn.rotationDegrees(radians(-160), true, haptics), 45);
  EXPECT_DOUBLE_EQ(turn.rotationDegrees(radians(-90), false, haptics), 90);
  EXPECT_EQ(haptics.performed, std::vector<HapticPattern>{HapticPattern::alignment});
  EXPECT_DOUBLE_EQ(WheelTurn::pointerAngle({10, 20}, {10, 10}), kPi / 2);
}

}  // namespace
}  // namespace rondora
