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

TEST(HeldFnTest, MarkedKeysHaveFnWhileItIsHeld) {
  constexpr std::uint32_t kDown = 10, kUp = 11, kFlags = 12;
  constexpr std::uint64_t kFn = 0x800000, kShift = 0x20000;
  struct Event {
    std::uint32_t type;
    std::int64_t keyCode;
    std::uint64_t flags;
    std::uint64_t told;
  };
  const Event events[] = {{kDown, 96, kFn | kShift, kShift},         // Shift-F5
                          {kFlags, 56, kShift | kFn, kShift | kFn},  // Shift, not Fn
                          {kDown, 96, kFn, 0},
                          {kFlags, 63, kFn, kFn},
                          {kDown, 96, kFn, kFn},
                          {kDown, 0, kFn, kFn},
                          {kFlags, 63, 0, 0},
                          {kUp, 96, kFn, 0},
                          {kDown, 123, 0xA00000, 0x200000},  // Left
                          {kDown, 0, kFn, kFn}};             // no mark: the system knows better
  HeldFn fn;
  for (const Event& each : events)
    EXPECT_EQ(fn.flagsOf(each.type, each.keyCode, each.flags), each.told) << each.keyCode;
}

}  // namespace
}  // namespace rondora::macos
