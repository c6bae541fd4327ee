#include "platform/macos/conversions/swallowed_keys.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace rondora::macos {
namespace {

using tap_events::kKeyDown;
using tap_events::kKeyUp;

constexpr std::uint64_t kCommand = 0x100000;

/// A tap for Command and key 48 that notes what it is asked.
struct Tap {
  bool isSwallowed(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags, bool isRepeat = false) {
    const EventTaps::Callback callback = [this](std::uint32_t asked, std::int64_t key, std::uint64_t held) {
      journal += std::to_string(asked) + (held == kCommand ? "c " : " ");
      return key == 48 && held == kCommand ? TapVerdict::swallow : TapVerdict::pass;
    };
    return keys.judge(callback, type, keyCode, flags, isRepeat) == TapVerdict::swallow;
  }

  SwallowedKeys keys;
  std::string journal;
};

TEST(SwallowedKeysTest, AReleaseFollowsItsPressThoughTheModifierIsUp) {
  Tap tap;
  EXPECT_TRUE(tap.isSwallowed(kKeyDown, 48, kCommand));
  EXPECT_TRUE(tap.isSwallowed(kKeyDown, 48, 0, true));
  EXPECT_TRUE(tap.isSwallowed(kKeyUp, 48, 0));
  EXPECT_EQ(tap.journal, "10c 10 11c ");
  EXPECT_FALSE(tap.isSwallowed(kKeyUp, 48, 0));
}

TEST(SwallowedKeysTest, OtherKeysAndNewPressesGoTheirWay) {
  Tap tap;
  EXPECT_TRUE(tap.isSwallowed(kKeyDown, 48, kCommand));
  EXPECT_FALSE(tap.isSwallowed(kKeyUp, 49, 0));
  EXPECT_FALSE(tap.isSwallowed(kKeyDown, 48, 0));  // its release was lost
  EXPECT_FALSE(tap.isSwallowed(kKeyUp, 48, 0));
  EXPECT_FALSE(tap.isSwallowed(tap_events::kFlagsChanged, 48, 0));
  EXPECT_FALSE(tap.isSwallowed(kKeyDown, -1, kCommand));
  EXPECT_FALSE(tap.isSwallowed(kKeyDown, 0xFFFF, kCommand));
}

}  // namespace
}  // namespace rondora::macos
