#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/observable.h"
#include "platform/key_event.h"

namespace rondora {

/// Identifies a registration in the events that it causes.
struct EventHotKeyID {
  std::uint32_t signature = 0;
  std::uint32_t id = 0;
  friend bool operator==(const EventHotKeyID&, const EventHotKeyID&) = default;
};

enum class ModifierHold : std::uint8_t {
  held,
  /// Tapped before the key, with sticky keys: no release follows.
  latched
};

inline constexpr std::uint32_t kEventHotKeyPressed = 5;
inline constexpr std::uint32_t kEventHotKeyReleased = 6;

struct HotKeyEvent {
  std::uint32_t kind = 0;
  EventHotKeyID id;
  /// Of a press.
  ModifierHold modifiers = ModifierHold::held;
};

/// System-wide hot keys, also while the program's overlay holds the keyboard. Modifiers match exactly; Caps Lock and
/// Num Lock are ignored. Each physical press is reported once, and its release when the key itself goes up, even if the
/// combination was registered again in between. The event monitors (platform/event_monitors.h) receive neither a
/// reported press, its repeats and its release, nor any repeat of a registered combination. Main thread.
class HotkeyService {
 public:
  /// Receives null when the event carries no data. Returns 0 when handled.
  using Handler = std::function<int(const HotKeyEvent*)>;

  /// True when a press that matches a hot key while the overlay holds the keyboard goes to the overlay instead.
  using OverlayRule = std::function<bool(const KeyEvent& press, const EventHotKeyID& id)>;

  virtual ~HotkeyService() = default;

  /// `keyCode` is a virtual key code, `carbonModifiers` a Carbon mask. The registration lives as long as the result;
  /// nothing when another program owns the combination, or the keyboard lacks the key or a modifier.
  [[nodiscard]] virtual std::optional<Subscription> registerEventHotKey(std::uint32_t keyCode,
                                                                        std::uint32_t carbonModifiers,
                                                                        EventHotKeyID id) = 0;
  /// The option of the keyboard by which these modifiers, pressed together, switch the layout, so that no hot key with
  /// them can be typed; nothing when there is none. May wait for the system.
  virtual std::optional<std::string> optionAgainst(std::uint32_t /*carbonModifiers*/) const { return std::nullopt; }
  /// Called after the modifier map changed: another program may have taken a live registration, and a refused one may
  /// now be possible. Register again.
  [[nodiscard]] virtual Subscription onModifiersMoved(std::function<void()> observer) = 0;
  /// The handler is called synchronously from the event loop.
  [[nodiscard]] virtual Subscription installEventHandler(Handler handler) = 0;
  /// Applied only by a platform whose overlay also receives the keys of hot keys.
  virtual void setOverlayRule(const OverlayRule& /*rule*/) {}
};

}  // namespace rondora
