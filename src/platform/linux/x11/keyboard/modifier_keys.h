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

/// How to set modifiers: keys to hold down and, for modifiers without a suitable key, modifiers to lock (X mask).
struct Chord {
  std::vector<xcb_keycode_t> keys;
  std::uint8_t lockedMask = 0;
  friend bool operator==(const Chord&, const Chord&) = default;
};

/// What the keys of the current mapping do to the modifiers.
struct ModifierKeys {
  struct Setters {
    /// X mask of the modifier; 0 when no key sets it.
    std::uint8_t mask = 0;
    /// Keys that set this modifier and nothing else, in every layout, the left one first.
    std::vector<xcb_keycode_t> keys;
  };

  /// Keys that the mapping defines.
  KeySet known;
  /// Keys that change a modifier or the layout while they are down.
  KeySet holding;
  /// Keys that toggle a lock, which outlasts their release.
  KeySet locking;
  /// The locks that such keys toggle, without Num Lock, which selects the number pad's meaning and no keystroke's.
  std::uint8_t toggledMask = 0;
  std::uint8_t numLockMask = 0;
  /// Indexed by Modifier.
  std::array<Setters, kModifierCount> setters;
  /// Indexed by ModifierSet: the first keys of these modifiers, all down, set exactly these modifiers and change
  /// neither layout nor lock. False where two modifiers together switch the layout.
  std::bitset<1U << kModifierCount> combinable;

  bool canSet(ModifierSet modifiers) const;
  /// Requires `canSet`; uses no key in `avoided`.
  Chord chordFor(ModifierSet modifiers, const KeySet& avoided) const;
  /// These keys, all down, have only the effects that each has alone.
  bool canBeHeldTogether(const KeySet& keys) const;
};

ModifierKeys modifierKeysOf(xkb_keymap* keymap);

}  // namespace rondora::x11
