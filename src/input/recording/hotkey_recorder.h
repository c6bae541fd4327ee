#pragma once

#include <cstdint>
#include <functional>

#include "base/observable.h"
#include "base/weak_self.h"
#include "input/recording/hotkey_capture_engine.h"
#include "model/hotkey_config.h"
#include "platform/event_monitors.h"
#include "platform/main_queue.h"
#include "platform/recording_keyboard.h"

namespace rondora {

/// Records one hotkey for the settings: holds the keyboard while it captures a combination, or Fn alone. Main thread.
class HotkeyRecorder {
 public:
  /// All must outlive the recorder.
  struct Ports {
    EventMonitors& eventMonitors;
    RecordingKeyboard& keyboard;
    MainQueue& mainQueue;
  };

  explicit HotkeyRecorder(const Ports& ports);

  /// Called when the recording has ended and the keyboard is free again.
  std::function<void(const HotkeyConfig&)> onRecorded;
  /// The user pressed Escape, or the keyboard was lost.
  std::function<void()> onCancelled;
  /// Modifiers changed while it records.
  std::function<void()> onModifiersChanged;
  /// The user clicked anywhere while it records.
  std::function<void()> onClick;

  /// False when another program holds the keyboard. Starts over while it records.
  bool start();
  /// Calls nothing.
  void stop();
  bool isRecording() const { return engine_.isRecording().value(); }
  /// The modifiers held so far, as a Carbon mask.
  std::int64_t heldModifiers() const { return heldModifiers_; }

 private:
  void followFn();
  void fnChanged(bool isDown);
  bool flagsChanged(const KeyEvent& event);
  void captured(const HotkeyConfig& hotkey);
  void cancelled();

  Ports ports_;
  HotkeyCaptureEngine engine_;
  Subscription keyboard_;
  Subscription flagsMonitor_;
  Subscription fnObserver_;
  std::int64_t heldModifiers_ = 0;
  /// Fn is held, and no other modifier has been held with it.
  bool isFnAlone_ = false;
  WeakSelf<HotkeyRecorder> weakSelf_{this};
};

/// The combination would take a key away that the user needs for typing or moving: a key without Control, Alt, Command
/// or Fn that is no function key.
bool needsModifier(const HotkeyConfig& hotkey);

}  // namespace rondora
