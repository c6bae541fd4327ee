#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "platform/linux/x11/typing/synthetic_typing.h"

namespace rondora::x11 {

/// Key codes of a PC keyboard.
inline constexpr xcb_keycode_t kControlL = 37, kControlR = 105, kShiftL = 50, kShiftR = 62, kAltL = 64, kAltGr = 108,
                               kSuperL = 133, kCapsLock = 66, kNumLock = 77, kA = 38, kB = 56;

/// How an X server merges two keyboards of the user and the XTEST keyboard into the one that applications see:
/// - each keyboard has its own keys; the merged one accepts a press of a key that is up and a release of one that is
/// down, from any keyboard, and drops the others;
/// - a fake release takes effect even when the XTEST keyboard does not hold the key, a second fake press does not;
/// - a lock is set at the press and, when it was already set, cleared at the release.
class ServerModel final : public SyntheticKeyboard {
 public:
  static constexpr std::size_t kKeyboards = 2;

  struct Event {
    xcb_keycode_t key = 0;
    bool isPress = false;
    /// Modifiers before it, locks included.
    std::uint8_t state = 0;
    bool isSeen = true;
  };

  static ModifierKeys modifierKeys();
  static bool isLock(xcb_keycode_t key) { return key == kCapsLock || key == kNumLock; }

  KeyboardState readState() override;
  void press(xcb_keycode_t key) override;
  void release(xcb_keycode_t key) override;
  void releaseUnseen(xcb_keycode_t key) override;
  void setLocks(std::uint8_t affected, std::uint8_t locked) override;
  void clearLatches() override {}

  /// The user presses a key that is up there, or releases one that is down.
  void userMoves(std::size_t keyboard, xcb_keycode_t key);

  const KeySet& logical() const { return logical_; }
  const KeySet& synthetic() const { return synthetic_; }
  KeySet physical() const;
  bool isDown(std::size_t keyboard, xcb_keycode_t key) const { return keyboards_[keyboard][key]; }
  std::uint8_t locked() const { return locked_; }
  std::uint8_t heldModifiers() const;
  /// False from the reading of the keys until the test sets it again.
  bool locksMayMove = true;

  /// Called before each operation that the server performs for the program.
  std::function<void()> meanwhile = [] {};
  std::vector<Event> events;

 private:
  void take(xcb_keycode_t key, bool isPress);

  std::array<KeySet, kKeyboards> keyboards_;
  KeySet synthetic_;
  KeySet logical_;
  std::uint8_t locked_ = 0;
  bool isHidden_ = false;
  /// By lock key that is down: the locks that its release clears.
  std::map<xcb_keycode_t, std::uint8_t> unlocks_;
};

}  // namespace rondora::x11
