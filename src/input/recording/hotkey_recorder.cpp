#include "input/recording/hotkey_recorder.h"

#include <array>
#include <utility>

#include "model/carbon_modifiers.h"
#include "platform/key_codes.h"

namespace rondora {
namespace {

constexpr std::array<std::uint16_t, 3> kVolumeKeys = {72, 73, 74};

/// The callback may destroy the recorder that holds it.
template <class Callback, class... Arguments>
void call(const Callback& callback, const Arguments&... arguments) {
  if (const Callback copy = callback) copy(arguments...);
}

}  // namespace

HotkeyRecorder::HotkeyRecorder(const Ports& ports) : ports_(ports), engine_(ports.eventMonitors, ports.mainQueue) {
  engine_.onCaptured = [this](std::int64_t keyCode, std::int64_t modifiers, bool isFnHeld) {
    // Some systems set the modifier bit for function and arrow keys too: the flag decides.
    captured({keyCode, (modifiers & ~carbon::kFunction) | (isFnHeld ? carbon::kFunction : 0)});
  };
  engine_.onEscape = [this] { cancelled(); };
}

bool HotkeyRecorder::start() {
  stop();
  auto keyboard = ports_.keyboard.take({.onClick = weakSelf_.bind([](HotkeyRecorder& self) { call(self.onClick); }),
                                        .onLost = weakSelf_.bind([](HotkeyRecorder& self) { self.cancelled(); })});
  if (!keyboard) return false;
  keyboard_ = std::move(*keyboard);
  heldModifiers_ = CarbonModifiers::carbon(ports_.eventMonitors.currentModifierFlags());
  flagsMonitor_ = ports_.eventMonitors.addLocalMonitor(
      kFlagsChangedMask,
      weakSelf_.bind([](HotkeyRecorder& self, const KeyEvent& event) { return self.flagsChanged(event); }));
  engine_.start();
  followFn();
  if (!isRecording()) stop();
  return isRecording();
}

void HotkeyRecorder::stop() {
  fnObserver_.reset();
  flagsMonitor_.reset();
  engine_.stop();
  keyboard_.reset();
  heldModifiers_ = 0;
  isFnAlone_ = false;
}

void HotkeyRecorder::followFn() {
  if (engine_.recorder() == nullptr) return;
  fnObserver_ = engine_.recorder()->fnState()->modifierDown.subscribe(
      weakSelf_.bind([](HotkeyRecorder& self, bool isDown) { self.fnChanged(isDown); }));
}

// The release is handled on a later turn: its monitors are being called now.
void HotkeyRecorder::fnChanged(bool isDown) {
  if (isDown) {
    isFnAlone_ = (heldModifiers_ & ~carbon::kFunction) == 0;
  } else if (std::exchange(isFnAlone_, false)) {
    ports_.mainQueue.async(weakSelf_.bind([](HotkeyRecorder& self) {
      if (self.isRecording()) self.captured({kFnKeyCode, 0});
    }));
  }
}

bool HotkeyRecorder::flagsChanged(const KeyEvent& event) {
  heldModifiers_ = CarbonModifiers::carbon(event.modifierFlags);
  if ((heldModifiers_ & ~carbon::kFunction) != 0) isFnAlone_ = false;
  call(onModifiersChanged);
  return false;
}

void HotkeyRecorder::captured(const HotkeyConfig& hotkey) {
  stop();
  call(onRecorded, hotkey);
}

void HotkeyRecorder::cancelled() {
  stop();
  call(onCancelled);
}

bool needsModifier(const HotkeyConfig& hotkey) {
  constexpr std::int64_t kSufficient = carbon::kControl | carbon::kOption | carbon::kCommand | carbon::kFunction;
  if ((hotkey.carbonModifiers & kSufficient) != 0 || hotkey.keyCode == kFnKeyCode) return false;
  return !key_codes::isAmong(key_codes::kFunctionRow, hotkey.keyCode) &&
         !key_codes::isAmong(kVolumeKeys, hotkey.keyCode);
}

}  // namespace rondora
