#include "pie/controller/preview_place.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "doubles/fake_devices.h"

namespace rondora {
namespace {

constexpr Rect kScreen{{1920, -200}, {1280, 800}};

PreviewSurroundings around(Point ringCenter, double radius, double angle) {
  return {squareAround(ringCenter, radius), ringCenter + Point{std::cos(angle), std::sin(angle)} * radius, kScreen};
}

TEST(PreviewPlace, LiesBesideTheRingElseBelowOrAboveIt) {
  const Point center = kScreen.center();
  const Point right = previewCorner(around(center, 150, 0.3), {300, 100});
  EXPECT_EQ(right.x, center.x + 170);
  EXPECT_DOUBLE_EQ(right.y + 50, center.y + 150 * std::sin(0.3)) << "level with the sector";
  EXPECT_EQ(previewCorner(around(center, 150, 2.5), {300, 100}).x, center.x - 170 - 300);
  const Point nearRightEdge{kScreen.right() - 200, center.y};
  EXPECT_EQ(previewCorner(around(nearRightEdge, 150, 0), {300, 100}).x, nearRightEdge.x - 470);
  EXPECT_EQ(previewCorner(around(center, 150, 1), {600, 100}).y, center.y + 170);
  EXPECT_EQ(previewCorner(around(center, 150, -1), {600, 100}).y, center.y - 270);
}

TEST(PreviewPlace, StaysOnTheScreenAndBesideTheRingWhereThereIsRoom) {
  SeededRandom random;
  const auto number = [&](int low, int high) {
    return low + static_cast<double>(random.below(static_cast<std::uint64_t>(high - low)));
  };
  for (int i = 0; i < 20000; ++i) {
    const Point center{number(1900, 3220), number(-220, 620)};
    const auto surroundings = around(center, number(20, 500), number(0, 6));
    const Size size{number(1, 900), number(1, 700)};
    const Rect preview{previewCorner(surroundings, size), size};
    EXPECT_GE(preview.left(), kScreen.left());
    EXPECT_GE(preview.top(), kScreen.top());
    EXPECT_LE(preview.right(), kScreen.right());
    EXPECT_LE(preview.bottom(), kScreen.bottom());
    const Rect& ring = surroundings.ring;
    const double roomBeside = std::max(ring.left() - kScreen.left(), kScreen.right() - ring.right());
    const double roomAbove = std::max(ring.top() - kScreen.top(), kScreen.bottom() - ring.bottom());
    const bool isRoom = roomBeside >= size.width + 40 || roomAbove >= size.height + 40;
    EXPECT_FALSE(isRoom && preview.intersects(ring));
  }
  EXPECT_EQ(previewCorner(around(kScreen.center(), 150, 0), {5000, 5000}), kScreen.origin);
}

}  // namespace
}  // namespace rondora
