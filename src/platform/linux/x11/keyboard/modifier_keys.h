#pragma once

#include <xcb/xproto.h>

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <vector>

struct xkb_keymap;

namespace rondora::x11 {

/// X key codes.
using KeySet = std::bitset<256>;

/// The modifiers of a keystroke, in the order in which they are pressed.
enum class Modifier : std::uint8_t { control, option, shift, command };
inline constexpr std::size_t kModifierCount = 4;
/// One bit for each Modifier, by its number.
using ModifierSet = std::bitset<kModifierCount>;

/// The means to set modifiers: keys held down and, for modifiers without a suitable key, locked modifiers (X mask).
struct Chord {
  std::vector<xcb_keycode_t> keys;
  std::uint8_t lockedMask = 0;
  friend bool operator==(const Chord&, const Chord&) = default;
};

/// The effect of the present mapping's keys on the modifiers.
struct ModifierKeys {
  struct Setters {
    /// X mask of the modifier; 0 when no key sets it.
    std::uint8_t mask = 0;
    /// Keys that set this modifier and nothing else, in every layout, the left one first.
    std::vector<xcb_keycode_t> keys;
  };

  /// Keys with a meaning.
  KeySet known;
  /// Change a modifier or the layout for as long as they are down.
  KeySet holding;
  /// Toggle a lock, which outlasts their release.
  KeySet locking;
  /// Locks that such keys toggle, without Num Lock, which belongs to the number pad and not to a keystroke.
  std::uint8_t toggledMask = 0;
  std::uint8_t numLockMask = 0;
  /// By Modifier.
  std::array<Setters, kModifierCount> setters;
  /// By the number of a ModifierSet: its keys, all down, set exactly these modifiers and change neither layout nor
  /// lock. False where two modifiers together switch the layout.
  std::bitset<1U << kModifierCount> combinable;

  bool canSet(ModifierSet modifiers) const;
  /// Requires `canSet`; uses no key in `avoided`.
  Chord chordFor(ModifierSet modifiers, const KeySet& avoided) const;
  /// These keys, all down, have only the effects that each has alone.
  bool canBeHeldTogether(const KeySet& keys) const;
};

ModifierKeys modifierKeysOf(xkb_keymap* keymap);

}  // namespace rondora::x11
