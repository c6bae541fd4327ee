#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <utility>

#include "platform/clock.h"
#include "platform/main_queue.h"
#include "platform/serial_queue.h"

namespace rondora {

/// A main queue and a clock whose time advances only at a test's request.
class VirtualTime final : public MainQueue, public Clock {
 public:
  static constexpr WallTime kStart = 700000000;

  void async(Work work) override { schedule(0, std::move(work)); }
  void after(double seconds, Work work) override { schedule(seconds, std::move(work)); }
  [[nodiscard]] Subscription workItem(double seconds, Work work) override {
    return cancelling(schedule(seconds, std::move(work)));
  }
  [[nodiscard]] Subscription timer(double interval, double /*tolerance*/, Work work) override {
    return cancelling(schedule(interval, std::move(work), interval));
  }

  WallTime now() const override { return kStart + elapsed_ - setBack_; }
  double uptime() const override { return kUptimeAtStart + elapsed_; }
  /// The user sets the wall clock back.
  void setWallClockBack(double seconds) { setBack_ += seconds; }
  /// Advances the time without running due work: the main thread is blocked.
  void sleep(double seconds) override { elapsed_ += seconds; }

  /// Runs all work that is due now, including work that it queues.
  void runUntilIdle() {
    while (runOneDueBefore(elapsed_)) {
    }
  }
  /// Advances the time and runs the work that becomes due, each at its own time.
  void advance(double seconds) {
    const double target = elapsed_ + seconds;
    while (runOneDueBefore(target)) {
    }
    elapsed_ = std::max(elapsed_, target);
  }
  /// Runs work of another thread, beside which the main thread goes on, and returns the time that it takes.
  double runBeside(const Work& work) {
    const double start = elapsed_;
    work();
    return std::exchange(elapsed_, start) - start;
  }
  /// Number of queued work items, due or not.
  std::size_t pendingCount() {
    dropCancelled();
    return schedule_.size();
  }

 private:
  static constexpr double kUptimeAtStart = 1000;
  static constexpr double kRoundingSlack = 1e-9;

  struct Scheduled {
    Work work;
    double interval = 0;
    bool isCancelled = false;
  };
  using Ref = std::shared_ptr<Scheduled>;

  void enqueue(double seconds, const Ref& scheduled) {
    schedule_.emplace(std::pair(elapsed_ + seconds, ++lastSequence_), scheduled);
  }
  Ref schedule(double seconds, Work work, double interval = 0) {
    const auto scheduled = std::make_shared<Scheduled>(Scheduled{std::move(work), interval});
    enqueue(seconds, scheduled);
    return scheduled;
  }
  [[nodiscard]] static Subscription cancelling(const Ref& scheduled) {
    return Subscription([weak = std::weak_ptr(scheduled)] {
      if (const auto found = weak.lock()) found->isCancelled = true;
    });
  }
  void dropCancelled() {
    std::erase_if(schedule_, [](const auto& entry) { return entry.second->isCancelled; });
  }
  bool runOneDueBefore(double limit) {
    dropCancelled();
    const auto first = schedule_.begin();
    if (first == schedule_.end() || first->first.first > limit + kRoundingSlack) return false;
    elapsed_ = std::max(elapsed_, first->first.first);
    const Ref next = first->second;
    schedule_.erase(first);
    if (next->interval > 0) enqueue(next->interval, next);
    next->work();
    return true;
  }

  double elapsed_ = 0;
  double setBack_ = 0;
  std::uint64_t lastSequence_ = 0;
  /// By due time, then by order of arrival.
  std::map<std::pair<double, std::uint64_t>, Ref> schedule_;
};

/// A thread of its own: its work runs one at a time, and the next one waits for as long as it takes.
class SerialQueueInVirtualTime final : public SerialQueue {
 public:
  explicit SerialQueueInVirtualTime(VirtualTime& time) : time_(time) {}
  void async(Work work) override {
    waiting_.push_back(std::move(work));
    if (!std::exchange(isBusy_, true)) runNextIn(0);
  }

 private:
  void runNextIn(double seconds) {
    next_ = time_.workItem(seconds, [this] { runNext(); });
  }
  void runNext() {
    isBusy_ = !waiting_.empty();
    if (!isBusy_) return;
    const Work work = std::move(waiting_.front());
    waiting_.pop_front();
    runNextIn(time_.runBeside(work));
  }

  VirtualTime& time_;
  std::deque<Work> waiting_;
  bool isBusy_ = false;
  Subscription next_;
};

}  // namespace rondora
