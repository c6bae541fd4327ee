#include "input/gestures/trackpad_gesture_monitor.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "model/pie_menu.h"

namespace rondora {

// A thread of frames only copies the weak reference; the main queue locks it.
TrackpadGestureMonitor::TrackpadGestureMonitor(const Services& services) : services_(services) {
  frames_ = std::make_shared<TrackpadFrames>(
      [&mainQueue = services.mainQueue,
       report = weakSelf_.bind([](TrackpadGestureMonitor& self, std::int64_t fingerCount) {
         if (const auto tap = self.onTap) tap(fingerCount);  // a copy: it may destroy the monitor
       })](std::int64_t fingerCount) { mainQueue.async([report, fingerCount] { report(fingerCount); }); });
}

void TrackpadGestureMonitor::start(const std::set<std::int64_t>& fingerCounts) {
  stop();
  std::vector<std::int64_t> usable;
  std::ranges::copy_if(fingerCounts, std::back_inserter(usable),
                       [](std::int64_t count) { return isFingerCount(count); });
  if (usable.empty()) return;
  if (!services_.devices.isUsable()) {
    return services_.log.error("MultitouchSupport unavailable, trackpad gesture disabled");
  }
  fingerCounts_ = std::move(usable);
  frames_->recognize(fingerCounts_);
  startDevices();
  observeDeviceChanges();
}

void TrackpadGestureMonitor::stop() {
  stopDevices();
  restartWorkItem_.reset();
  wakeObserver_.reset();
  arrivalObserver_.reset();
  fingerCounts_.clear();
  frames_->recognize({});
}

void TrackpadGestureMonitor::startDevices() {
  auto list = services_.devices.createList();
  if (!list) return;
  for (const MultitouchDevice device : *list) {
    if (device == 0) continue;
    services_.devices.registerContactFrameCallback(
        device, [frames = frames_](MultitouchDevice source, const std::byte* records, std::int32_t count,
                                   double timestamp) { frames->contactFrame(source, records, count, timestamp); });
    services_.devices.start(device);
  }
  devices_ = std::move(list);
  logStart(devices_->size());
}

void TrackpadGestureMonitor::stopDevices() {
  for (const MultitouchDevice device :
       std::exchange(devices_, std::nullopt).value_or(std::vector<MultitouchDevice>())) {
    if (device == 0) continue;
    services_.devices.unregisterContactFrameCallback(device);
    services_.devices.stop(device);
  }
  frames_->discardRecognizers();
}

void TrackpadGestureMonitor::observeDeviceChanges() {
  wakeObserver_ =
      services_.session.onDidWake(weakSelf_.bind([](TrackpadGestureMonitor& self) { self.scheduleRestart(); }));
  arrivalObserver_ = services_.devices.onArrival(weakSelf_.bind([](TrackpadGestureMonitor& self) {
    self.services_.mainQueue.async(
        self.weakSelf_.bind([](TrackpadGestureMonitor& monitor) { monitor.scheduleRestart(); }));
  }));
}

// Cancels a pending restart, so events that follow each other closely cause one.
void TrackpadGestureMonitor::scheduleRestart() {
  restartWorkItem_ =
      services_.mainQueue.workItem(kRestartDelay, weakSelf_.bind([](TrackpadGestureMonitor& self) { self.restart(); }));
}

void TrackpadGestureMonitor::restart() {
  if (fingerCounts_.empty() || !services_.devices.isUsable()) return;
  stopDevices();
  startDevices();
}

void TrackpadGestureMonitor::logStart(std::size_t deviceCount) const {
  std::string counts;
  for (const std::int64_t count : fingerCounts_) counts += (counts.empty() ? "" : ",") + std::to_string(count);
  services_.log.standard("trackpad gesture: " + counts + "-finger tap on " + std::to_string(deviceCount) +
                         " device(s)");
}

}  // namespace rondora
