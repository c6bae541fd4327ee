#include "platform/macos/conversions/property_list.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/macos/conversions/screen_coordinates.h"

namespace rondora::macos {
namespace {

constexpr std::nullopt_t kNone = std::nullopt;

struct Case {
  PropertyList list;
  std::optional<bool> boolean;
  std::optional<std::int64_t> integer;
  std::optional<double> number;
};

TEST(PropertyListTest, NumbersThatMeanTheSameStandForEachOther) {
  const Case cases[] = {
      {{}, kNone, kNone, kNone},
      {{true}, true, kNone, kNone},
      {{std::int64_t{0}}, false, 0, 0.0},
      {{std::int64_t{1}}, true, 1, 1.0},
      {{std::int64_t{-7}}, kNone, -7, -7.0},
      {{1.0}, true, 1, 1.0},
      {{0.5}, kNone, kNone, 0.5},
      {{0x1p63}, kNone, kNone, 0x1p63},
      {{-0x1p63}, kNone, std::numeric_limits<std::int64_t>::min(), -0x1p63},
      {{std::string("1")}, kNone, kNone, kNone},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(booleanOf(&each.list), each.boolean);
    EXPECT_EQ(integerOf(&each.list), each.integer);
    EXPECT_EQ(numberOf(&each.list), each.number);
  }
  EXPECT_EQ(integerOf(nullptr), kNone);
}

TEST(ScreenCoordinatesTest, AWindowBelowTheFirstScreenHasPositionsBeyondItsHeight) {
  constexpr double kHeight = 900;
  const Rect upward{{100, -300}, {640, 200}};
  EXPECT_EQ(flipped(upward, kHeight), (Rect{{100, 1000}, {640, 200}}));
  EXPECT_EQ(flipped(flipped(upward, kHeight), kHeight), upward);
  EXPECT_EQ(flipped(Point{5, 900}, kHeight), (Point{5, 0}));
}

}  // namespace
}  // namespace rondora::macos
