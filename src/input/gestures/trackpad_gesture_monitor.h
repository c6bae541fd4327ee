#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <utility>

namespace rondora {

/// Listens for taps of several fingers on trackpads. Without a port for such devices it reports no taps. Main thread.
class TrackpadGestureMonitor {
 public:
  /// Receives the number of fingers.
  std::function<void(std::int64_t)> onTap;

  void start(std::set<std::int64_t> fingerCounts) { fingerCounts_ = std::move(fingerCounts); }
  void stop() { fingerCounts_.clear(); }
  /// The finger counts that it listens for; empty when stopped.
  const std::set<std::int64_t>& fingerCounts() const { return fingerCounts_; }

 private:
  std::set<std::int64_t> fingerCounts_;
};

}  // namespace rondora
