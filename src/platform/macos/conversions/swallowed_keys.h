#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/event_taps.h"

namespace rondora::macos {

/// Which presses a tap has swallowed. The system judges each event by itself, so it would let the release of a
/// swallowed key pass once a modifier is up.
class SwallowedKeys {
 public:
  /// The callback's verdict on an event, which is asked about a release with the flags of its press.
  TapVerdict judge(const EventTaps::Callback& callback, std::uint32_t type, std::int64_t keyCode, std::uint64_t flags,
                   bool isRepeat);

 private:
  /// Virtual key codes are below it.
  static constexpr std::size_t kKeyCount = 128;

  /// By key code.
  std::array<std::optional<std::uint64_t>, kKeyCount> flagsOfPress_;
};

}  // namespace rondora::macos
