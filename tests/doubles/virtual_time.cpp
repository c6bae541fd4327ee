#include "doubles/virtual_time.h"

#include <algorithm>
#include <stdexcept>

namespace rondora {

std::shared_ptr<VirtualTime::Scheduled> VirtualTime::schedule(double seconds, Work work, double interval) {
  auto scheduled = std::make_shared<Scheduled>();
  scheduled->work = std::move(work);
  scheduled->interval = interval;
  schedule_.emplace(Key(elapsed_ + seconds, ++lastSequence_), scheduled);
  return scheduled;
}

Subscription VirtualTime::cancelling(const std::shared_ptr<Scheduled>& scheduled) {
  return Subscription([weak = std::weak_ptr<Scheduled>(scheduled)] {
    if (const auto found = weak.lock()) found->isCancelled = true;
  });
}

Subscription VirtualTime::timer(double interval, double tolerance, Work work) {
  lastTimerInterval_ = interval;
  lastTimerTolerance_ = tolerance;
  return cancelling(schedule(interval, std::move(work), interval));
}

bool VirtualTime::runOneDueBefore(double limit) {
  std::erase_if(schedule_, [](const auto& entry) { return entry.second->isCancelled; });
  if (schedule_.empty() || schedule_.begin()->first.first > limit + kRoundingSlack) return false;
  const auto first = schedule_.begin();
  elapsed_ = std::max(elapsed_, first->first.first);
  const std::shared_ptr<Scheduled> next = first->second;
  schedule_.erase(first);
  if (next->interval > 0) schedule_.emplace(Key(elapsed_ + next->interval, ++lastSequence_), next);
  next->work();
  return true;
}

void VirtualTime::runUntilIdle() {
  constexpr int kTooManyTurns = 100000;
  for (int turn = 0; runOneDueBefore(elapsed_); ++turn) {
    if (turn == kTooManyTurns) throw std::runtime_error("the main queue never becomes idle");
  }
}

void VirtualTime::advance(double seconds) {
  const double target = elapsed_ + seconds;
  while (runOneDueBefore(target)) {
  }
  elapsed_ = std::max(elapsed_, target);
}

std::size_t VirtualTime::pendingCount() const {
  return static_cast<std::size_t>(
      std::count_if(schedule_.begin(), schedule_.end(), [](const auto& entry) { return !entry.second->isCancelled; }));
}

}  // namespace rondora
