#pragma once

#include <functional>
#include <memory>

#include "base/observable.h"
#include "base/weak_self.h"
#include "input/recording/hotkey_recording_event_tap.h"
#include "platform/event_monitors.h"
#include "platform/main_queue.h"

namespace rondora {

/// Captures the next key press of the program's own event stream, one for each start. Main thread.
class HotkeyCaptureEngine {
 public:
  HotkeyCaptureEngine(EventMonitors& eventMonitors, MainQueue& mainQueue)
      : eventMonitors_(eventMonitors), mainQueue_(mainQueue) {}

  HotkeyRecordingEventTap::CapturedKeyDown onCaptured;
  /// The user cancelled.
  std::function<void()> onEscape;

  /// No effect while it records. Ends at once when no monitor could be installed.
  void start();
  void stop();
  const CurrentValue<bool>& isRecording() const { return isRecording_; }
  /// Null unless it records.
  const HotkeyRecordingEventTap* recorder() const { return recorder_.get(); }

 private:
  std::unique_ptr<HotkeyRecordingEventTap> makeRecorder();

  EventMonitors& eventMonitors_;
  MainQueue& mainQueue_;
  CurrentValue<bool> isRecording_{false};
  std::unique_ptr<HotkeyRecordingEventTap> recorder_;
  WeakSelf<HotkeyCaptureEngine> weakSelf_{this};
};

}  // namespace rondora
