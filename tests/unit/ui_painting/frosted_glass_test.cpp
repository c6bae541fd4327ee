#include "ui/painting/frosted_glass.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <vector>

namespace rondora {
namespace {

constexpr int kWidth = 90;
constexpr int kHeight = 61;

struct Pixels {
  explicit Pixels(int rowLength = kWidth)
      : stride(rowLength), values(static_cast<std::size_t>(rowLength * kHeight), 0xFFABCDEF) {}
  PixelBuffer buffer() { return {values.data(), kWidth, kHeight, stride}; }
  std::uint32_t& at(int x, int y) { return values[static_cast<std::size_t>(y * stride + x)]; }
  void fill(const std::function<std::uint32_t(int, int)>& color) {
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) at(x, y) = 0xFF000000U | color(x, y);
    }
  }
  int stride;
  std::vector<std::uint32_t> values;
};

Pixels frosted(Pixels screen, const Frost& glass) {
  Pixels result;
  frost(screen.buffer(), glass, result.buffer());
  return result;
}

int green(std::uint32_t pixel) { return static_cast<int>(pixel >> 8 & 0xFF); }

TEST(FrostedGlassTest, UniformColourIsChangedByTheVeilOnly) {
  Pixels screen(kWidth + 7);
  screen.fill([](int, int) { return 0x3366AAU; });
  for (const double radius : {0.0, 3.0, 7.0, 26.0, 52.0, 1e9}) {
    for (const std::uint32_t pixel : frosted(screen, {radius}).values) {
      for (int shift = 0; shift < 32; shift += 8) {
        EXPECT_NEAR(pixel >> shift & 0xFF, 0xFF3366AAU >> shift & 0xFF, 1) << radius;
      }
    }
  }
  for (const std::uint32_t pixel : frosted(screen, {7, 1, 1, {0, 1, 0, 1}}).values) EXPECT_EQ(pixel, 0xFF00FF00U);
}

TEST(FrostedGlassTest, EdgesAreBlurredOverTheRadius) {
  Pixels screen;
  screen.fill([](int x, int) { return x < kWidth / 2 ? 0U : 0xFFFFFFU; });
  for (const double radius : {4.0, 7.0, 14.0, 26.0}) {
    Pixels seen = frosted(screen, {radius});
    for (int x = 1; x < kWidth; ++x) {
      ASSERT_GE(green(seen.at(x, 30)), green(seen.at(x - 1, 30))) << radius;
      ASSERT_EQ(seen.at(x, 0), seen.at(x, kHeight - 1));
    }
    EXPECT_NEAR(green(seen.at(kWidth / 2, 30)) + green(seen.at(kWidth / 2 - 1, 30)), 255, 8) << "the slope's middle";
    int width = 0;
    for (int x = 0; x < kWidth; ++x) width += green(seen.at(x, 30)) > 13 && green(seen.at(x, 30)) < 242 ? 1 : 0;
    EXPECT_NEAR(width, 1.64 * radius, 0.25 * radius + 2) << "between 5 % and 95 %";
  }
}

}  // namespace
}  // namespace rondora
