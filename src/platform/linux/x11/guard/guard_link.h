#pragma once

#include <chrono>
#include <functional>

#include "base/observable.h"
#include "platform/linux/x11/guard/input_guard.h"
#include "platform/linux/x11/keyboard/x11_recording_keyboard.h"
#include "platform/linux/x11/overlay/x11_input_grab.h"
#include "platform/linux/x11/typing/xtest_key_poster.h"
#include "platform/main_queue.h"

namespace rondora::x11 {

/// Reports to the guard that the main loop runs, while a grab or a typed key is held and only then, and replaces a
/// guard that died.
/// Main thread.
class GuardLink {
 public:
  /// Calls `readable` on the main loop whenever the descriptor is readable, until the result is destroyed.
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  /// The references must outlive the object.
  GuardLink(InputGuard& guard, X11InputGrab& inputGrab, X11RecordingKeyboard& recordingKeyboard,
            XTestKeyPoster& keyPoster, MainQueue& mainQueue, WatchReadable watchReadable);

 private:
  void grabsChanged();
  void typing(bool isDown);
  void watchGuard();
  void guardDied();

  InputGuard& guard_;
  MainQueue& mainQueue_;
  WatchReadable watchReadable_;
  bool isRingOpen_ = false;
  bool isRecording_ = false;
  Subscription grabObserver_;
  Subscription recordingObserver_;
  Subscription typingObserver_;
  /// Runs while a grab is held.
  Subscription beats_;
  Subscription guardWatch_;
  Subscription replacement_;
  std::chrono::steady_clock::time_point nextReplacement_{};
};

}  // namespace rondora::x11
