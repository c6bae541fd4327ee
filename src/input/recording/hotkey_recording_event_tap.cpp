#include "input/recording/hotkey_recording_event_tap.h"

#include <utility>

#include "model/carbon_modifiers.h"
#include "model/hotkey_config.h"

namespace rondora {

HotkeyRecordingEventTap::HotkeyRecordingEventTap(EventMonitors& eventMonitors, MainQueue& mainQueue,
                                                 std::shared_ptr<FnGlobeRecordingState> fnState)
    : eventMonitors_(eventMonitors), mainQueue_(mainQueue), fnState_(std::move(fnState)) {}

bool HotkeyRecordingEventTap::start() {
  stop();
  isDone_ = false;
  using Self = HotkeyRecordingEventTap;
  install(eventMonitors_.addLocalMonitor(
      kFlagsChangedMask, weakSelf_.bind([](Self& self, const KeyEvent& event) { return self.handleFlags(event); })));
  install(eventMonitors_.addLocalMonitor(
      kKeyDownMask, weakSelf_.bind([](Self& self, const KeyEvent& event) { return self.handleKeyDown(event); })));
  return !monitors_.empty();
}

void HotkeyRecordingEventTap::stop() { monitors_.clear(); }

void HotkeyRecordingEventTap::install(Subscription monitor) {
  if (monitor) monitors_.push_back(std::move(monitor));
}

bool HotkeyRecordingEventTap::handleFlags(const KeyEvent& event) const {
  if (event.keyCode != kFnKeyCode) return false;
  const bool isDown = (event.modifierFlags & event_flags::kFunction) != 0;
  if (fnState_->modifierDown.value() != isDown) fnState_->modifierDown.send(isDown);
  return false;
}

// The callbacks are copied because they may destroy the recorder that holds them.
bool HotkeyRecordingEventTap::handleKeyDown(const KeyEvent& event) {
  if (std::exchange(isDone_, true)) return true;
  if (event.keyCode == kEscapeKeyCode) {
    mainQueue_.async(weakSelf_.bind([](HotkeyRecordingEventTap& self) {
      if (const auto escape = self.onEscape) escape();
    }));
    return true;
  }
  const std::int64_t modifiers = CarbonModifiers::carbon(event.modifierFlags);
  mainQueue_.async(weakSelf_.bind([keyCode = std::int64_t{event.keyCode}, modifiers,
                                   isFnHeld = fnState_->modifierDown.value()](HotkeyRecordingEventTap& self) {
    if (const auto captured = self.onCapturedKeyDown) captured(keyCode, modifiers, isFnHeld);
  }));
  return true;
}

}  // namespace rondora
