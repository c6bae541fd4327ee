#include "platform/macos/conversions/key_event_flags.h"

#include "model/hotkey_config.h"
#include "platform/event_taps.h"
#include "platform/key_codes.h"

namespace rondora::macos {
namespace {

constexpr std::uint64_t kModifiers =
    event_flags::kShift | event_flags::kControl | event_flags::kOption | event_flags::kCommand | event_flags::kFunction;

bool isMarked(std::int64_t keyCode) {
  return keyCode == key_codes::kHelp || key_codes::isAmong(key_codes::kFunctionRow, keyCode) ||
         key_codes::isAmong(key_codes::kNavigation, keyCode) || key_codes::isAmong(key_codes::kArrows, keyCode);
}

}  // namespace

std::uint64_t heldModifiers(std::uint64_t flags, std::optional<std::uint16_t> keyCode) {
  return flags & (keyCode && isMarked(*keyCode) ? kModifiers & ~event_flags::kFunction : kModifiers);
}

std::uint64_t HeldFn::flagsOf(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags) {
  if (type == tap_events::kFlagsChanged) {
    if (keyCode == kFnKeyCode) isHeld_ = (flags & event_flags::kFunction) != 0;
    return flags;
  }
  if (!isMarked(keyCode)) return flags;
  return isHeld_ ? flags | event_flags::kFunction : flags & ~event_flags::kFunction;
}

}  // namespace rondora::macos
