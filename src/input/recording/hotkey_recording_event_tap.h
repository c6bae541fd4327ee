#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "input/recording/fn_globe_recording_state.h"
#include "platform/event_monitors.h"
#include "platform/main_queue.h"

namespace rondora {

/// Captures one key-down of the program's own event stream: keys after it, or after Escape, are swallowed and not
/// reported. Main thread.
class HotkeyRecordingEventTap {
 public:
  /// Key code, Carbon modifiers, and whether Fn is held.
  using CapturedKeyDown = std::function<void(std::int64_t, std::int64_t, bool)>;

  HotkeyRecordingEventTap(EventMonitors& eventMonitors, MainQueue& mainQueue,
                          std::shared_ptr<FnGlobeRecordingState> fnState);
  ~HotkeyRecordingEventTap() { stop(); }
  HotkeyRecordingEventTap(const HotkeyRecordingEventTap&) = delete;
  HotkeyRecordingEventTap& operator=(const HotkeyRecordingEventTap&) = delete;

  /// Called on a later turn of the main queue, unless the recorder is gone by then. They may destroy it.
  CapturedKeyDown onCapturedKeyDown;
  std::function<void()> onEscape;

  /// True when at least one monitor could be installed.
  bool start();
  void stop();
  const std::shared_ptr<FnGlobeRecordingState>& fnState() const { return fnState_; }

 private:
  void install(Subscription monitor);
  bool handleFlags(const KeyEvent& event) const;
  bool handleKeyDown(const KeyEvent& event);

  EventMonitors& eventMonitors_;
  MainQueue& mainQueue_;
  std::vector<Subscription> monitors_;
  std::shared_ptr<FnGlobeRecordingState> fnState_;
  /// A key was captured, or Escape pressed, since the start.
  bool isDone_ = false;
  WeakSelf<HotkeyRecordingEventTap> weakSelf_{this};
};

}  // namespace rondora
