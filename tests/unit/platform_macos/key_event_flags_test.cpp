#include "platform/macos/conversions/key_event_flags.h"

#include <gtest/gtest.h>

namespace rondora::macos {
namespace {

TEST(KeyEventFlags, LeavesOutWhatNobodyHolds) {
  struct Case {
    std::uint64_t flags;
    std::optional<std::uint16_t> keyCode;
    std::uint64_t held;
  };
  const Case cases[] = {{0x100108, 0, 0x100000},   // Command-A, with the bit of the left Command key
                        {0x30102, 0, 0x20000},     // Shift-A under Caps Lock
                        {0xA00100, 123, 0},        // Left: marked with Fn and as a key of the pad
                        {0x880120, 122, 0x80000},  // Option-F1
                        {0x840101, 49, 0x840000},  // Control-Fn-Space
                        {0x800100, 63, 0x800000},  // Fn itself
                        {0x9E0000, std::nullopt, 0x9E0000}};
  for (const Case& each : cases) EXPECT_EQ(heldModifiers(each.flags, each.keyCode), each.held) << each.flags;
}

}  // namespace
}  // namespace rondora::macos
