#include <gmock/gmock.h>

#include "model/carbon_modifiers.h"
#include "model/hotkey_config.h"
#include "platform/key_event.h"

namespace rondora {
namespace {

TEST(CarbonModifiersTest, ConvertEachModifierBothWays) {
  const std::pair<std::int64_t, std::uint64_t> pairs[] = {
      {0x100, 0x100000}, {0x200, 0x20000}, {0x800, 0x80000}, {0x1000, 0x40000}, {0x20000, 0x800000}};
  for (const auto& [carbonBit, eventBit] : pairs) {
    EXPECT_EQ(CarbonModifiers::carbon(eventBit), carbonBit);
    EXPECT_EQ(CarbonModifiers::eventFlags(carbonBit), eventBit);
  }
}

TEST(CarbonModifiersTest, DropEverythingElse) {
  EXPECT_EQ(CarbonModifiers::carbon(~std::uint64_t{0}), 0x21B00);
  EXPECT_EQ(CarbonModifiers::eventFlags(-1), 0x9E0000U);
  EXPECT_EQ(CarbonModifiers::carbon(0x10000 | 0xFFFF), 0);
}

TEST(HotkeyConfigTest, TellsSpecialCombinationsApart) {
  EXPECT_TRUE((HotkeyConfig{63, 0}).isStandaloneFn());
  EXPECT_FALSE((HotkeyConfig{63, 0x100}).isStandaloneFn());
  EXPECT_TRUE((HotkeyConfig{48, 0x300}).isCommandTabStyle());
  EXPECT_FALSE((HotkeyConfig{48, 0x800}).isCommandTabStyle());
  EXPECT_FALSE((HotkeyConfig{48, 0x20100}).isCommandTabStyle());
  EXPECT_TRUE((HotkeyConfig{0, 0}).isAssigned());
  EXPECT_FALSE((HotkeyConfig{-1, 0x100}).isAssigned());
}

}  // namespace
}  // namespace rondora
