#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

#include "platform/clock.h"
#include "platform/main_queue.h"

namespace rondora {

/// The main queue and the clock of a desktop on which time passes only when a test says so.
class VirtualTime final : public MainQueue, public Clock {
 public:
  static constexpr WallTime kStart = 700000000;

  void async(Work work) override { schedule(0, std::move(work)); }
  void after(double seconds, Work work) override { schedule(seconds, std::move(work)); }
  [[nodiscard]] Subscription workItem(double seconds, Work work) override {
    return cancelling(schedule(seconds, std::move(work)));
  }
  [[nodiscard]] Subscription timer(double interval, double tolerance, Work work) override;

  WallTime now() const override { return kStart + elapsed_; }
  double uptime() const override { return kUptimeAtStart + elapsed_; }
  /// Time passes, but nothing that is due meanwhile runs: the main thread is blocked.
  void sleep(double seconds) override { elapsed_ += seconds; }

  /// Runs all that is due now, including what that work enqueues.
  void runUntilIdle();
  /// Lets time pass and runs what becomes due on the way, each at its own moment.
  void advance(double seconds);
  /// Of the timer that was asked for last, in seconds.
  double lastTimerInterval() const { return lastTimerInterval_; }
  double lastTimerTolerance() const { return lastTimerTolerance_; }
  /// Work that waits, due or not.
  std::size_t pendingCount() const;

 private:
  static constexpr double kUptimeAtStart = 1000;
  static constexpr double kRoundingSlack = 1e-9;
  using Key = std::pair<double, std::uint64_t>;

  struct Scheduled {
    Work work;
    double interval = 0;
    bool isCancelled = false;
  };

  std::shared_ptr<Scheduled> schedule(double seconds, Work work, double interval = 0);
  [[nodiscard]] Subscription cancelling(const std::shared_ptr<Scheduled>& scheduled);
  bool runOneDueBefore(double limit);

  double elapsed_ = 0;
  double lastTimerInterval_ = 0;
  double lastTimerTolerance_ = 0;
  std::uint64_t lastSequence_ = 0;
  std::map<Key, std::shared_ptr<Scheduled>> schedule_;
};

}  // namespace rondora
