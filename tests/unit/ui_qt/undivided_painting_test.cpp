#include "ui/qt/painting/undivided_painting.h"

#include <gtest/gtest.h>

TEST(UndividedPaintingTest, CallerAndPoolThreadTakeTurns) {
  int painted = 0;
  for (int frame = 1; frame <= 50; ++frame) {
    rondora::paintUndivided([&] { ++painted; });
    EXPECT_EQ(painted++, 2 * frame - 1);
  }
}
