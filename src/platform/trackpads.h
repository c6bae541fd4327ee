#pragma once

namespace rondora {

enum class TrackpadAccess {
  /// No trackpad is present.
  none,
  readable,
  /// At least one trackpad may not be read by this process.
  unreadable,
};

/// The trackpads of this computer. Main thread.
class Trackpads {
 public:
  virtual ~Trackpads() = default;

  /// The current state; queries the system.
  virtual TrackpadAccess access() const = 0;
};

}  // namespace rondora
