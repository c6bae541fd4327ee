#pragma once

namespace rondora {

enum class TrackpadAccess {
  /// There is no trackpad.
  none,
  readable,
  /// At least one trackpad may not be read by this process.
  unreadable,
};

/// The trackpads of this computer. Main thread.
class Trackpads {
 public:
  virtual ~Trackpads() = default;

  /// As things are now: asks the system.
  virtual TrackpadAccess access() const = 0;
};

}  // namespace rondora
