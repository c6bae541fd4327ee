#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

namespace rondora {

/// Work that occupies the queue, which ends early once something else needs it.
class QueueReadings {
 public:
  void cancel() { ++*cancellations_; }
  /// A condition that holds once `cancel` was called later than this. Any thread may ask it.
  std::function<bool()> makeIsCancelled() const;

 private:
  std::shared_ptr<std::atomic<std::uint64_t>> cancellations_ = std::make_shared<std::atomic<std::uint64_t>>(0);
};

}  // namespace rondora
