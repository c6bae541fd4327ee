#include "app/trigger_sources.h"

#include <utility>

namespace rondora {

TriggerSources::TriggerSources(const Services& services)
    : services_(services),
      trackpadGestureMonitor_({.devices = services.multitouch,
                               .session = services.sessionEvents,
                               .mainQueue = services.mainQueue,
                               .log = services.log}) {
  trackpadGestureMonitor_.onTap = weakSelf_.bind([](TriggerSources& self, std::int64_t fingerCount) {
    self.services_.switchboard.handleTrackpadGesture(fingerCount);
  });
}

template <class... Details>
std::function<void(HotkeyManager::MenuIndices, Details...)> TriggerSources::onMainQueue(
    void (MenuSwitchboard::*handle)(const MenuSwitchboard::Candidates&, Details...)) const {
  auto handled = weakSelf_.bind(
      [handle](TriggerSources& self, const MenuSwitchboard::Candidates& candidates, const Details&... details) {
        (self.services_.switchboard.*handle)(candidates, details...);
      });
  return [&mainQueue = services_.mainQueue, handled = std::move(handled)](HotkeyManager::MenuIndices indices,
                                                                          Details... details) {
    mainQueue.async([handled, candidates = MenuSwitchboard::Candidates(indices.begin(), indices.end()), details...] {
      handled(candidates, details...);
    });
  };
}

void TriggerSources::makeHotkeyManager() {
  hotkeyManager_ = std::make_unique<HotkeyManager>(services_.hotkeyService,
                                                   HotkeyHIDTap::Ports{.eventTaps = services_.eventTaps,
                                                                       .secureInput = services_.secureInput,
                                                                       .eventMonitors = services_.eventMonitors,
                                                                       .switcher = services_.nativeAppSwitcher,
                                                                       .mainQueue = services_.mainQueue,
                                                                       .log = services_.log});
  hotkeyManager_->onHotkeyPressed = onMainQueue(&MenuSwitchboard::handleHotkeyPressed);
  hotkeyManager_->onHotkeyReleased = onMainQueue(&MenuSwitchboard::handleHotkeyReleased);
  MenuSwitchboard& switchboard = services_.switchboard;
  hotkeyManager_->followRing(
      {[&switchboard](HotkeyManager::MenuIndices indices) { return switchboard.showsOneOf(indices); },
       [&switchboard](const KeyEvent& event) { return switchboard.quickSelects(event); }});
}

void TriggerSources::setUp() {
  if (hotkeyManager_) {
    hotkeyManager_->unregisterAll();
  } else {
    makeHotkeyManager();
  }
  hotkeyManager_->registerAll(services_.config.current().menus);
  if (onHotkeysChanged) onHotkeysChanged();
  setUpTrackpadGesture();
}

void TriggerSources::setUpTrackpadGesture() {
  std::set<std::int64_t> fingerCounts;
  for (const auto& [fingerCount, menuIndex] : services_.config.current().trackpadGestureTargets()) {
    fingerCounts.insert(fingerCount);
  }
  if (fingerCounts == activeTrackpadFingerCounts_) return;
  activeTrackpadFingerCounts_ = fingerCounts;
  if (fingerCounts.empty()) return trackpadGestureMonitor_.stop();
  trackpadGestureMonitor_.start(fingerCounts);
}

void TriggerSources::retryRefusedHotkeys() {
  if (!hotkeyManager_) return;
  hotkeyManager_->retakeTapKeys();
  if (!hotkeyManager_->hasRefused()) return;
  const double now = services_.clock.uptime();
  if (now < nextRetry_) {
    retry_ = services_.mainQueue.workItem(nextRetry_ - now,
                                          weakSelf_.bind([](TriggerSources& self) { self.retryRefusedHotkeys(); }));
    return;
  }
  nextRetry_ = now + kRetryInterval;
  hotkeyManager_->retryRefused();
  if (onHotkeysChanged) onHotkeysChanged();
}

void TriggerSources::tearDown() {
  retry_.reset();
  if (hotkeyManager_) hotkeyManager_->unregisterAll();
  trackpadGestureMonitor_.stop();
}

}  // namespace rondora
