#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/linux/x11/keyboard/modifier_keys.h"

namespace rondora::x11 {

/// The state of the server's keyboards. Its parts are read by several requests: the user may press or release a key
/// between two of them.
struct KeyboardState {
  /// Down in the merged keyboard that applications see.
  KeySet logical;
  /// Down on one of the user's keyboards.
  KeySet physical;
  /// Down on the XTEST keyboard, the source of fake events.
  KeySet synthetic;
  /// X masks.
  std::uint8_t lockedMask = 0;
  std::uint8_t latchedMask = 0;
  /// A tapped modifier applies to the next key.
  bool stickyKeys = false;
};

/// The keyboards of the X server and its XTEST keyboard. Requests are carried out in order.
class SyntheticKeyboard {
 public:
  virtual ~SyntheticKeyboard() = default;

  virtual KeyboardState readState() = 0;
  virtual void press(xcb_keycode_t key) = 0;
  /// Also releases, for applications, a key that the user holds; the server then drops the user's own release.
  virtual void release(xcb_keycode_t key) = 0;
  /// As `release`, but no application receives the event.
  virtual void releaseUnseen(xcb_keycode_t key) = 0;
  /// Sets the locks in `affected` to those in `locked` (X masks).
  virtual void setLocks(std::uint8_t affected, std::uint8_t locked) = 0;
  virtual void clearLatches() = 0;
};

/// One key with exactly these modifiers.
struct SyntheticKeystroke {
  xcb_keycode_t key = 0;
  ModifierSet modifiers;
  /// X mask of the locks to be on; the others are off, except Num Lock.
  std::uint8_t lockedMask = 0;
};

/// Types a key while the user may hold others, and restores the user's state: applications see a key as down when the
/// user holds it, and a lock as on when the user set it. Any thread, one call at a time.
///
/// The server merges its keyboards: applications see a key go down when the first of them presses it, and up when the
/// first of them releases it. So a fake release releases a key that the user holds, and a fake press restores it; then
/// both keyboards hold the key. The user's release ends it for applications, and the XTEST keyboard, which then holds
/// it alone, must follow (`settle`).
class SyntheticTyping {
 public:
  /// `keyboard` must outlive the object.
  explicit SyntheticTyping(SyntheticKeyboard& keyboard) : keyboard_(keyboard) {}

  /// Presses the key; ends an earlier keystroke first. Reads the state once, twice when the user holds a key that
  /// toggles a lock.
  void down(std::shared_ptr<const ModifierKeys> keys, const SyntheticKeystroke& keystroke);
  /// Releases it and restores the keys and locks of the user. Reads the state once, and once more after each
  /// correction.
  void up();
  /// Follows releases by the user. Call it when a key is released while `isHolding`.
  void settle();
  /// The XTEST keyboard still holds a key for the user.
  bool isHolding() const { return touched_.any(); }
  /// Releases all keys pressed here; a modifier that the user holds goes up too.
  void finish();

 private:
  struct Typed {
    xcb_keycode_t key = 0;
    Chord chord;
    /// The locks before the keystroke, and as set for it.
    std::uint8_t before = 0;
    std::uint8_t during = 0;
  };

  static KeySet unsuitableKeys(const KeyboardState& state);
  KeyboardState stateWithoutLockKeys();
  void releaseHeld(const KeySet& keys);
  void restoreLocks(const Typed& typed, std::uint8_t locked);
  bool correct(const KeyboardState& state);
  bool followReleases(const KeyboardState& state);
  bool restoreKeys(const KeyboardState& state);

  SyntheticKeyboard& keyboard_;
  std::shared_ptr<const ModifierKeys> keys_;
  std::optional<Typed> typed_;
  /// Modifier keys pressed or released here that do not match the user's state yet.
  KeySet touched_;
};

}  // namespace rondora::x11
