#include "input/recording/hotkey_capture_engine.h"

#include <cstdint>
#include <utility>

namespace rondora {

void HotkeyCaptureEngine::start() {
  if (isRecording_.value()) return;
  isRecording_.send(true);
  if (!isRecording_.value() || recorder_) return;  // an observer stopped it, or even started it again
  auto recorder = makeRecorder();
  if (recorder->start()) {
    recorder_ = std::move(recorder);
  } else {
    isRecording_.send(false);
  }
}

// The owner's callbacks are copied, and `stop` is bound weakly, because they may destroy the engine.
std::unique_ptr<HotkeyRecordingEventTap> HotkeyCaptureEngine::makeRecorder() {
  auto recorder =
      std::make_unique<HotkeyRecordingEventTap>(eventMonitors_, mainQueue_, std::make_shared<FnGlobeRecordingState>());
  const auto stop = weakSelf_.bind([](HotkeyCaptureEngine& self) { self.stop(); });
  recorder->onEscape = weakSelf_.bind([stop](HotkeyCaptureEngine& self) {
    if (const auto escape = self.onEscape) escape();
    stop();
  });
  recorder->onCapturedKeyDown =
      weakSelf_.bind([stop](HotkeyCaptureEngine& self, std::int64_t keyCode, std::int64_t modifiers, bool isFnHeld) {
        if (const auto captured = self.onCaptured) captured(keyCode, modifiers, isFnHeld);
        stop();
      });
  return recorder;
}

void HotkeyCaptureEngine::stop() {
  if (!isRecording_.value()) return;
  // Destroyed last: the observers see the end first.
  const auto recorder = std::move(recorder_);
  isRecording_.send(false);
}

}  // namespace rondora
