#include "platform/macos/conversions/swallowed_keys.h"

#include <utility>

namespace rondora::macos {

TapVerdict SwallowedKeys::judge(const EventTaps::Callback& callback, std::uint32_t type, std::int64_t keyCode,
                                std::uint64_t flags, bool isRepeat) {
  const bool isKnown = keyCode >= 0 && keyCode < static_cast<std::int64_t>(flagsOfPress_.size());
  if (!isKnown || (type != tap_events::kKeyDown && type != tap_events::kKeyUp)) return callback(type, keyCode, flags);
  auto& press = flagsOfPress_.at(static_cast<std::size_t>(keyCode));
  if (type == tap_events::kKeyUp) {
    const auto flagsOfPress = std::exchange(press, std::nullopt);
    const TapVerdict verdict = callback(type, keyCode, flagsOfPress.value_or(flags));
    return flagsOfPress ? TapVerdict::swallow : verdict;
  }
  const TapVerdict verdict = callback(type, keyCode, flags);
  if (isRepeat && press) return TapVerdict::swallow;
  if (verdict == TapVerdict::swallow) {
    press = flags;
  } else {
    press.reset();
  }
  return verdict;
}

}  // namespace rondora::macos
