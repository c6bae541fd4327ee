#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/linux/x11/keyboard/modifier_keys.h"

namespace rondora::x11 {

/// What the X server says of its keyboards. The parts are read one after the other: the user may have moved a key
/// between two of them.
struct KeyboardLook {
  /// Down as the applications see it.
  KeySet logical;
  /// Held on a keyboard of the user's.
  KeySet physical;
  /// Held on the server's own keyboard that fake events come from.
  KeySet synthetic;
  /// X masks.
  std::uint8_t lockedMask = 0;
  std::uint8_t latchedMask = 0;
  /// A modifier that is tapped stays for the next key.
  bool stickyKeys = false;
};

/// The keyboards of the X server, and the one that fake events come from. What is asked for is done in order.
class SyntheticKeyboard {
 public:
  virtual ~SyntheticKeyboard() = default;

  virtual KeyboardLook look() = 0;
  virtual void press(xcb_keycode_t key) = 0;
  /// Also lets go, for the applications, of what the user holds; the user's own release is then dropped.
  virtual void release(xcb_keycode_t key) = 0;
  /// As `release`, and no application is told.
  virtual void releaseUnseen(xcb_keycode_t key) = 0;
  /// Sets the locks in `affected` to those in `locked` (X masks).
  virtual void setLocks(std::uint8_t affected, std::uint8_t locked) = 0;
  virtual void clearLatches() = 0;
};

/// One key with exactly these modifiers.
struct SyntheticKeystroke {
  xcb_keycode_t key = 0;
  ModifierSet modifiers;
  /// X mask of locks that are to be on; the others are off, but for Num Lock.
  std::uint8_t lockedMask = 0;
};

/// Types a key whatever the user holds at that time, and leaves the keyboard as the user has it: a key is down for the
/// applications when the user holds it, a lock is on when the user set it. Any thread, one call at a time.
///
/// The server merges its keyboards: a key goes down for the applications when the first of them presses it, and up when
/// the first of them releases it. So what the user holds is let go of by a fake release and given back by a fake press,
/// after which both keyboards hold it; the user's release ends it for the applications, and the fake keyboard, which
/// then holds it alone, has to follow (`settle`).
class SyntheticTyping {
 public:
  /// `keyboard` outlives this.
  explicit SyntheticTyping(SyntheticKeyboard& keyboard) : keyboard_(keyboard) {}

  /// Presses the key; ends an earlier keystroke first. One look, two when the user holds a key that toggles a lock.
  void down(std::shared_ptr<const ModifierKeys> keys, const SyntheticKeystroke& keystroke);
  /// Releases it and gives back what the user still holds and had locked. One look, one more for each mending.
  void up();
  /// Compares with what the user holds by now. Call it when a key was released while `isHolding`.
  void settle();
  /// The fake keyboard still holds a key for the user.
  bool isHolding() const { return touched_.any(); }
  /// Nothing stays pressed by us, at the price that a modifier which the user holds goes up.
  void finish();

 private:
  struct Typed {
    xcb_keycode_t key = 0;
    Chord chord;
    /// Locks as the user had them, and as they were set for the keystroke.
    std::uint8_t before = 0;
    std::uint8_t during = 0;
  };

  static KeySet unsuitableKeys(const KeyboardLook& look);
  KeyboardLook lookWithoutLockKeys();
  void letGo(const KeySet& keys);
  void giveBackLocks(const Typed& typed, std::uint8_t locked);
  bool mend(const KeyboardLook& look);
  bool followReleases(const KeyboardLook& look);
  bool giveBackKeys(const KeyboardLook& look);

  SyntheticKeyboard& keyboard_;
  std::shared_ptr<const ModifierKeys> keys_;
  std::optional<Typed> typed_;
  /// Modifier keys that we pressed or let go of and that are not yet as the user has them.
  KeySet touched_;
};

}  // namespace rondora::x11
