#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>

#include "app/menu_switchboard.h"
#include "base/weak_self.h"
#include "input/gestures/trackpad_gesture_monitor.h"
#include "input/hotkeys/hotkey_manager.h"
#include "platform/hotkey_service.h"
#include "platform/log.h"
#include "platform/main_queue.h"
#include "storage/config_manager.h"

namespace rondora {

/// Hotkeys and trackpad taps of the document's menus; passes their triggers to the switchboard. Main thread.
class TriggerSources {
 public:
  /// The references must outlive the object.
  struct Services {
    MainQueue& mainQueue;
    Log& log;
    HotkeyService& hotkeyService;
    const ConfigManager& config;
    MenuSwitchboard& switchboard;
  };

  explicit TriggerSources(const Services& services);

  /// Registers the hotkeys of the current document and listens for its finger counts; replaces earlier registrations.
  void setUp();
  void tearDown();
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
  WeakSelf<TriggerSources> weakSelf_{this};
};

}  // namespace rondora
