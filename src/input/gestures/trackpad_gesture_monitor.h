#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "input/gestures/trackpad_frames.h"
#include "platform/log.h"
#include "platform/main_queue.h"
#include "platform/multitouch.h"
#include "platform/session_events.h"

namespace rondora {

/// Listens to the contact frames of every trackpad for taps of three, four or five fingers. After the machine wakes or
/// a trackpad arrives it attaches to the devices again. Main thread.
class TrackpadGestureMonitor {
 public:
  static constexpr double kRestartDelay = 1.0;  // seconds

  /// The references must outlive the object, the main queue and the port's threads.
  struct Services {
    MultitouchDevices& devices;
    SessionEvents& session;
    MainQueue& mainQueue;
    Log& log;
  };

  explicit TrackpadGestureMonitor(const Services& services);
  ~TrackpadGestureMonitor() { stop(); }
  TrackpadGestureMonitor(const TrackpadGestureMonitor&) = delete;
  TrackpadGestureMonitor& operator=(const TrackpadGestureMonitor&) = delete;

  /// Receives the number of fingers, on a turn of the main queue after the tap.
  std::function<void(std::int64_t)> onTap;

  /// Replaces the counts that it listens for. Counts other than 3, 4 and 5 are ignored.
  void start(const std::set<std::int64_t>& fingerCounts);
  void stop();
  /// The finger counts that it listens for, ascending; empty when stopped.
  const std::vector<std::int64_t>& fingerCounts() const { return fingerCounts_; }

  /// A frame as the devices deliver them; see TrackpadFrames. Any thread.
  void contactFrame(MultitouchDevice device, const std::byte* records, std::int32_t count, double timestamp) {
    frames_->contactFrame(device, records, count, timestamp);
  }

 private:
  void startDevices();
  void stopDevices();
  void observeDeviceChanges();
  void scheduleRestart();
  void restart();
  void logStart(std::size_t deviceCount) const;

  Services services_;
  std::vector<std::int64_t> fingerCounts_;
  std::optional<std::vector<MultitouchDevice>> devices_;
  /// The callbacks of the devices own it, too.
  std::shared_ptr<TrackpadFrames> frames_;
  Subscription wakeObserver_;
  Subscription arrivalObserver_;
  Subscription restartWorkItem_;
  WeakSelf<TrackpadGestureMonitor> weakSelf_{this};
};

}  // namespace rondora
