#pragma once

#include <functional>

namespace rondora {

/// Runs work in order, one at a time, on a thread other than the main one.
class SerialQueue {
 public:
  using Work = std::function<void()>;

  /// Drops pending work and waits for running work.
  virtual ~SerialQueue() = default;

  /// May be called from any thread.
  virtual void async(Work work) = 0;
};

}  // namespace rondora
