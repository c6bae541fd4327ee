#include "platform/macos/conversions/key_event_flags.h"

#include <algorithm>
#include <array>

namespace rondora::macos {
namespace {

constexpr std::uint64_t kModifiers =
    event_flags::kShift | event_flags::kControl | event_flags::kOption | event_flags::kCommand | event_flags::kFunction;
/// F1 to F20; Help, Home, Page Up, Forward Delete, End, Page Down; Left, Right, Down, Up.
constexpr std::array<std::uint16_t, 30> kMarkedKeys = {122, 120, 99,  118, 96,  97,  98,  100, 101, 109,
                                                       103, 111, 105, 107, 113, 106, 64,  79,  80,  90,
                                                       114, 115, 116, 117, 119, 121, 123, 124, 125, 126};

}  // namespace

std::uint64_t heldModifiers(std::uint64_t flags, std::optional<std::uint16_t> keyCode) {
  const bool isMarked = keyCode && std::ranges::find(kMarkedKeys, *keyCode) != kMarkedKeys.end();
  return flags & (isMarked ? kModifiers & ~event_flags::kFunction : kModifiers);
}

}  // namespace rondora::macos
