#pragma once

#include "platform/event_taps.h"

namespace rondora::macos {

/// Active event taps where the hardware's events enter the window server, which need the Accessibility permission.
class QuartzEventTaps final : public EventTaps {
 public:
  std::unique_ptr<EventTap> create(std::uint64_t eventMask, std::span<const TapKey> keys, Callback callback) override;
  std::vector<EventTapRecord> list() const override;
  std::int32_t ownProcess() const override;
};

}  // namespace rondora::macos
