#pragma once

namespace rondora {

enum class HapticPattern { levelChange, alignment };

class Haptics {
 public:
  virtual ~Haptics() = default;

  /// True when a device of this computer gives haptic feedback.
  virtual bool isAvailable() const = 0;
  /// Plays the pattern at the default performance time; no effect without a haptic device.
  virtual void perform(HapticPattern pattern) = 0;
};

}  // namespace rondora
