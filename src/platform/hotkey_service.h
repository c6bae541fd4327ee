#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "base/observable.h"

namespace rondora {

/// Identifies a registration in the events that it causes.
struct EventHotKeyID {
  std::uint32_t signature = 0;
  std::uint32_t id = 0;
  friend bool operator==(const EventHotKeyID&, const EventHotKeyID&) = default;
};

inline constexpr std::uint32_t kEventHotKeyPressed = 5;
inline constexpr std::uint32_t kEventHotKeyReleased = 6;

struct HotKeyEvent {
  std::uint32_t kind = 0;
  EventHotKeyID id;
};

/// System-wide hot keys. Modifiers match exactly, whatever Caps Lock and Num Lock do; a press is reported once however
/// long the key is held, a release when the key itself goes up, also when the combination was registered anew
/// meanwhile. While the program's overlay holds the keyboard nothing is reported but hot keys whose key is itself a
/// modifier: all other keys, releases of reported presses included, are then key events (platform/event_monitors.h); a
/// release that comes when the overlay is gone is reported, wherever the press was. Main thread.
class HotkeyService {
 public:
  /// Receives nothing when the event carries no event data. Returns 0 when handled.
  using Handler = std::function<int(const HotKeyEvent*)>;

  virtual ~HotkeyService() = default;

  /// `keyCode` is a virtual key code, `carbonModifiers` a Carbon mask. The registration lives as long as the result;
  /// nothing when another program owns the combination, or the key does not exist here.
  [[nodiscard]] virtual std::optional<Subscription> registerEventHotKey(std::uint32_t keyCode,
                                                                        std::uint32_t carbonModifiers,
                                                                        EventHotKeyID id) = 0;
  /// Calls back after the keyboard has put its modifiers elsewhere: on the way a live registration may have been lost
  /// to another program, and one that was refused may be possible now. Who registered should do it anew.
  [[nodiscard]] virtual Subscription onModifiersMoved(std::function<void()> observer) = 0;
  /// The handler is called synchronously from the event loop.
  [[nodiscard]] virtual Subscription installEventHandler(Handler handler) = 0;
};

}  // namespace rondora
