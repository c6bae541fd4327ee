#pragma once

namespace rondora {

/// Seconds since 2001-01-01 00:00:00 UTC.
using WallTime = double;

class Clock {
 public:
  virtual ~Clock() = default;

  virtual WallTime now() const = 0;
  /// Monotonic seconds since boot.
  virtual double uptime() const = 0;
  /// Blocks the calling thread. Only for the pauses between the key events of one keystroke.
  virtual void sleep(double seconds) = 0;
};

}  // namespace rondora
