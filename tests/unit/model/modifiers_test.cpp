#include <gtest/gtest.h>

#include "model/carbon_modifiers.h"

namespace rondora {
namespace {

TEST(CarbonModifiersTest, RoundTripAndDropOtherBits) {
  const std::pair<std::int64_t, std::uint64_t> pairs[] = {
      {0x100, 0x100000}, {0x200, 0x20000}, {0x800, 0x80000}, {0x1000, 0x40000}, {0x20000, 0x800000}};
  for (const auto& [carbonBit, eventBit] : pairs) {
    EXPECT_EQ(CarbonModifiers::carbon(eventBit), carbonBit);
    EXPECT_EQ(CarbonModifiers::eventFlags(carbonBit), eventBit);
  }
  EXPECT_EQ(CarbonModifiers::carbon(~std::uint64_t{0}), 0x21B00);
  EXPECT_EQ(CarbonModifiers::eventFlags(-1), 0x9E0000U);
}

}  // namespace
}  // namespace rondora
