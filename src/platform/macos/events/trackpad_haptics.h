#pragma once

#include "platform/haptics.h"

namespace rondora::macos {

class TrackpadHaptics final : public Haptics {
 public:
  /// Whether a trackpad states that it can actuate, under a name that no documentation promises.
  bool isAvailable() const override;
  void perform(HapticPattern pattern) override;
};

}  // namespace rondora::macos
