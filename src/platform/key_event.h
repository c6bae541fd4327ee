#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace rondora {

enum class KeyEventType { keyDown, keyUp, flagsChanged };

/// Bits of the flags of a key event.
namespace event_flags {
inline constexpr std::uint64_t kShift = 0x20000;
inline constexpr std::uint64_t kControl = 0x40000;
inline constexpr std::uint64_t kOption = 0x80000;
inline constexpr std::uint64_t kCommand = 0x100000;
/// The key is one of the numeric pad or of the cursor.
inline constexpr std::uint64_t kNumericPad = 0x200000;
inline constexpr std::uint64_t kFunction = 0x800000;
/// The low 16 bits depend on the device.
inline constexpr std::uint64_t kDeviceIndependentMask = ~std::uint64_t{0xFFFF};
}  // namespace event_flags

/// A key event as the overlay sees it. The texts are short enough not to allocate.
struct KeyEvent {
  KeyEventType type = KeyEventType::keyDown;
  /// Virtual key code (the physical key), or kNoKeyCode for a key that has none.
  std::uint16_t keyCode = 0;
  /// The text that the key types in the current layout, with and without the modifiers other than Shift.
  std::string characters;
  std::string charactersIgnoringModifiers;
  /// The modifiers held before the event, for flagsChanged those held after it; locks (Caps, Num) are left out.
  std::uint64_t modifierFlags = 0;
  /// A key-down of the keyboard's auto-repeat, also when the first press came before the overlay was shown.
  bool isRepeat = false;

  static constexpr std::uint16_t kNoKeyCode = 0xFFFF;
};

}  // namespace rondora
