#pragma once

#include <cstdint>
#include <optional>

namespace rondora {

/// The modifier state that a synthetic event belongs to: a private one, or the hardware keyboard's.
enum class KeyEventSourceState { privateState, hidSystemState };
/// Where an event enters the system: at the login session or at the hardware.
enum class KeyEventTap { session, hid };

/// Event flags (platform/key_event.h) of a key event, by their origin.
struct KeyFlags {
  /// The modifiers that a user would hold.
  std::uint64_t modifiers = 0;
  /// The flags that a keyboard sets for this key without any modifier (arrows, navigation keys).
  std::uint64_t own = 0;

  std::uint64_t all() const { return modifiers | own; }
};

/// A key event that is ready to be posted.
struct SyntheticKeyEvent {
  KeyEventSourceState source = KeyEventSourceState::privateState;
  std::uint16_t keyCode = 0;
  bool isDown = false;
  /// Event flags: the exact modifiers that the receiver sees.
  std::uint64_t flags = 0;
  /// The backend's own code of the key.
  std::uint16_t nativeKeyCode = 0;

  friend bool operator==(const SyntheticKeyEvent&, const SyntheticKeyEvent&) = default;
};

/// Types into the window with the keyboard focus. Main thread; where the system has shortcuts for spaces
/// (platform/symbolic_hot_keys.h), also the queue that presses them, one at a time.
class KeyEventPoster {
 public:
  virtual ~KeyEventPoster() = default;

  /// An event with these flags; nothing when the keyboard has no such key, or no key for one of the modifiers.
  virtual std::optional<SyntheticKeyEvent> makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode, bool isDown,
                                                        const KeyFlags& flags) = 0;
  /// False while our own overlay would receive the typed key.
  virtual bool reachesApplications() const = 0;
  /// Keys that the user holds do not change what the receiver sees, and posting does not change their state for the
  /// user. False when the system did not take the event.
  virtual bool post(const SyntheticKeyEvent& event, KeyEventTap tap) = 0;
};

}  // namespace rondora
