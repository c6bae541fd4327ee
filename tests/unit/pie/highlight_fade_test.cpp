#include "pie/controller/highlight_fade.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

namespace rondora {
namespace {

using Amounts = std::map<std::size_t, double>;

Amounts advance(HighlightFade& fade, std::size_t highlighted, double seconds) {
  Amounts moved;
  fade.advance(highlighted, seconds, [&](std::size_t index, double amount) { moved[index] = amount; });
  return moved;
}

TEST(HighlightFadeTest, OneSectorFadesInWhileTheFormerFadesOut) {
  HighlightFade fade(4, 0.1);
  EXPECT_EQ(advance(fade, 1, 0.1), (Amounts{{1, 1}}));
  EXPECT_TRUE(fade.isAtRest(1));
  EXPECT_FALSE(fade.isAtRest(2));
  Amounts last{{1, 1}, {2, 0}};
  for (int i = 0; i < 9; ++i) {
    const Amounts now = advance(fade, 2, 0.01);
    ASSERT_EQ(now.size(), 2u);
    EXPECT_LT(now.at(1), last.at(1));
    EXPECT_GT(now.at(2), last.at(2));
    EXPECT_NEAR(now.at(1) + now.at(2), 1, 1e-9);
    last = now;
  }
  EXPECT_EQ(advance(fade, 2, 0.02), (Amounts{{1, 0}, {2, 1}}));
}

TEST(HighlightFadeTest, WithoutDurationItEndsAtOnce) {
  for (const double none : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    HighlightFade fade(2, none);
    EXPECT_EQ(advance(fade, 1, 0), (Amounts{{1, 1}}));
    EXPECT_TRUE(fade.isAtRest(1));
  }
}

}  // namespace
}  // namespace rondora
