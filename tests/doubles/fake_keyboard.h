#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "doubles/fake_event_taps.h"
#include "platform/event_monitors.h"
#include "platform/hotkey_service.h"
#include "platform/recording_keyboard.h"

namespace rondora {

/// The physical keyboard and the consumers of its events: the event tap first, then hot keys, then the overlay while it
/// holds the keyboard. While a hotkey is recorded, the event monitors alone.
/// The layout is US; Shift does not change what a key types.
class FakeKeyboard final : public HotkeyService, public EventMonitors, public RecordingKeyboard {
 public:
  enum Key : std::uint16_t {
    kCommandKey = 55,
    kShiftKey = 56,
    kOptionKey = 58,
    kControlKey = 59,
    kSpaceKey = 49,
    kTabKey = 48,
    kEscapeKey = 53,
    kFnKey = 63,
  };

  /// `overlayHoldsKeyboard` is called for every event.
  explicit FakeKeyboard(std::function<bool()> overlayHoldsKeyboard)
      : overlayHoldsKeyboard_(std::move(overlayHoldsKeyboard)) {}

  [[nodiscard]] std::optional<Subscription> registerEventHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                                                EventHotKeyID id) override;
  std::optional<std::string> optionAgainst(std::uint32_t /*carbonModifiers*/) const override { return option; }
  [[nodiscard]] Subscription onModifiersMoved(std::function<void()> observer) override;
  [[nodiscard]] Subscription installEventHandler(HotkeyService::Handler handler) override;
  void setOverlayRule(const OverlayRule& rule) override { overlayRule_ = rule; }
  [[nodiscard]] Subscription addLocalMonitor(std::uint32_t eventMask, EventMonitors::Handler handler) override;
  std::uint64_t currentModifierFlags() const override;
  [[nodiscard]] std::optional<Subscription> take(RecordingKeyboard::Observer observer) override;

  void press(std::uint16_t keyCode);
  void release(std::uint16_t keyCode);
  /// The user taps a modifier with sticky keys: it is set for the next key.
  void latch(std::uint16_t keyCode);
  /// The held key repeats.
  void repeat(std::uint16_t keyCode);
  /// Releases the key without an event.
  void releaseUnseen(std::uint16_t keyCode) { held_.erase(keyCode); }
  void tap(std::uint16_t keyCode);
  void pressAll(std::initializer_list<std::uint16_t> keyCodes);
  void releaseAll(std::initializer_list<std::uint16_t> keyCodes);

  bool isRegistered(std::uint32_t keyCode, std::uint32_t carbonModifiers) const {
    return registered(keyCode, carbonModifiers).has_value();
  }
  std::size_t registrationCount() const { return registrations_->size(); }
  std::size_t handlerCount() const { return handlers_.size(); }
  std::size_t monitorCount() const { return monitors_.size(); }
  /// The user chooses another layout.
  void moveModifiers() { modifiersMoved_.send(); }
  bool isTaken() const { return recording_.has_value(); }
  /// The user clicks, or a ring opens.
  void clickWhileTaken() const { RecordingKeyboard::Observer(*recording_).onClick(); }
  void loseKeyboard() const { RecordingKeyboard::Observer(*recording_).onLost(); }
  /// Sends a hot-key event directly, as the system would.
  int send(const HotKeyEvent* event) const;

  /// Combinations (key code, Carbon mask) that another program has taken.
  std::set<std::pair<std::uint32_t, std::uint32_t>> foreignOwners;
  /// Another program holds the whole keyboard.
  bool isHeldByOther = false;
  FakeEventTaps taps;
  /// The keyboard's option that makes all modifiers switch the layout.
  std::optional<std::string> option;

 private:
  struct Registration {
    std::uint32_t keyCode = 0;
    std::uint32_t carbonModifiers = 0;
    EventHotKeyID id;
  };

  KeyEvent event(KeyEventType type, std::uint16_t keyCode) const;
  void changeFlags(std::uint16_t keyCode) const;
  void deliverToMonitors(const KeyEvent& event) const;
  std::optional<EventHotKeyID> registered(std::uint32_t keyCode, std::uint32_t carbonModifiers) const;
  void sendHotKey(const HotKeyEvent& event) const { send(&event); }

  bool goesToProgram() const { return recording_ || overlayHoldsKeyboard_(); }

  std::function<bool()> overlayHoldsKeyboard_;
  std::optional<RecordingKeyboard::Observer> recording_;
  /// Event flags.
  std::uint64_t latched_ = 0;
  Signal<> modifiersMoved_;
  OverlayRule overlayRule_;
  std::uint64_t lastRegistration_ = 0;
  std::shared_ptr<std::map<std::uint64_t, Registration>> registrations_ =
      std::make_shared<std::map<std::uint64_t, Registration>>();
  Signal<const HotKeyEvent*, int&> handlers_;
  CallbackList<std::uint32_t, const KeyEvent&> monitors_;
  struct HeldKey {
    /// Event flags of a press that the tap swallowed.
    std::optional<std::uint64_t> flagsInTap;
    /// Carbon modifiers of the hot key that the press triggered.
    std::optional<std::uint32_t> hotKeyModifiers;
  };
  /// Keys that are down.
  std::map<std::uint16_t, HeldKey> held_;
};

}  // namespace rondora
