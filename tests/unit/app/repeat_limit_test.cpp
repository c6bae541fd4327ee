#include "app/repeat_limit.h"

#include <gtest/gtest.h>

#include "doubles/fake_log.h"
#include "doubles/virtual_time.h"

namespace rondora {
namespace {

TEST(RepeatLimitTest, FloodShowsTenLinesAndLaterTheNumberOfOthers) {
  VirtualTime time;
  FakeLog log;
  RepeatLimit limit(log, time);
  for (int i = 0; i < 1000; ++i) limit.error("the same");
  limit.standard("another");
  EXPECT_EQ(log.lines.size(), 11U);
  time.advance(10);
  limit.error("the same");
  ASSERT_EQ(log.lines.size(), 13U);
  EXPECT_EQ(log.lines[11].text, "the same (990 more)");
  EXPECT_EQ(log.lines[12].text, "the same");
}

}  // namespace
}  // namespace rondora
