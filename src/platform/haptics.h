#pragma once

namespace rondora {

enum class HapticPattern { levelChange, alignment };

class Haptics {
 public:
  virtual ~Haptics() = default;

  /// Plays the pattern at the default performance time; no effect without a haptic device.
  virtual void perform(HapticPattern pattern) = 0;
};

}  // namespace rondora
