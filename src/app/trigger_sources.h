#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>

#include "app/menu_switchboard.h"
#include "base/weak_self.h"
#include "input/gestures/trackpad_gesture_monitor.h"
#include "input/hotkeys/hotkey_manager.h"
#include "platform/clock.h"
#include "platform/hotkey_service.h"
#include "platform/log.h"
#include "platform/main_queue.h"
#include "platform/multitouch.h"
#include "platform/session_events.h"
#include "storage/config_manager.h"

namespace rondora {

/// Hotkeys and trackpad taps of the document's menus; passes their triggers to the switchboard. Main thread.
class TriggerSources {
 public:
  /// The references must outlive the object.
  struct Services {
    MainQueue& mainQueue;
    const Clock& clock;
    Log& log;
    HotkeyService& hotkeyService;
    EventTaps& eventTaps;
    SecureInput& secureInput;
    const EventMonitors& eventMonitors;
    NativeAppSwitcher& nativeAppSwitcher;
    MultitouchDevices& multitouch;
    SessionEvents& sessionEvents;
    const ConfigManager& config;
    MenuSwitchboard& switchboard;
  };

  static constexpr double kRetryInterval = 5;  // seconds

  explicit TriggerSources(const Services& services);

  /// Called when hotkeys have been registered.
  std::function<void()> onHotkeysChanged;

  /// Registers the hotkeys of the current document and listens for its finger counts; replaces earlier registrations.
  void setUp();
  void tearDown();
  /// Takes back keys of the event tap, and tries refused hotkeys again: at once, or as soon as kRetryInterval has
  /// passed since the last time.
  void retryRefusedHotkeys();
  /// Null before the first `setUp`.
  const HotkeyManager* hotkeyManager() const { return hotkeyManager_.get(); }
  TrackpadGestureMonitor& trackpadGestureMonitor() { return trackpadGestureMonitor_; }

 private:
  void makeHotkeyManager();
  /// Wraps a trigger so that a later turn of the main queue handles it, whichever thread it comes from.
  template <class... Details>
  std::function<void(HotkeyManager::MenuIndices, Details...)> onMainQueue(
      void (MenuSwitchboard::*handle)(const MenuSwitchboard::Candidates&, Details...)) const;
  void setUpTrackpadGesture();

  Services services_;
  TrackpadGestureMonitor trackpadGestureMonitor_;
  std::set<std::int64_t> activeTrackpadFingerCounts_;
  std::unique_ptr<HotkeyManager> hotkeyManager_;
  double nextRetry_ = 0;  // uptime
  Subscription retry_;
  WeakSelf<TriggerSources> weakSelf_{this};
};

}  // namespace rondora
