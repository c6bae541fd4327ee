#include "platform/linux/x11/keyboard/modifier_keys.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>

#include "base/owned.h"

namespace rondora::x11 {
namespace {

constexpr xkb_mod_mask_t kRealModifiers = 0xFF;

struct KeysymPair {
  xkb_keysym_t left;
  xkb_keysym_t right;
};

// Indexed by Modifier.
constexpr KeysymPair kKeysyms[] = {{XKB_KEY_Control_L, XKB_KEY_Control_R},
                                   {XKB_KEY_Alt_L, XKB_KEY_Alt_R},
                                   {XKB_KEY_Shift_L, XKB_KEY_Shift_R},
                                   {XKB_KEY_Super_L, XKB_KEY_Super_R}};

struct Effect {
  std::uint8_t mask = 0;  // while the key is down
  std::uint8_t lockedMask = 0;
  bool shiftsLayout = false;
  bool changesLayout = false;
};

/// A private keyboard state on which key presses are simulated.
class SimulatedKeyboard {
 public:
  explicit SimulatedKeyboard(xkb_keymap* keymap) : keymap_(keymap), state_(xkb_state_new(keymap)) {}

  bool knows(xcb_keycode_t key) const { return xkb_keymap_num_layouts_for_key(keymap_, key) > 0; }
  void reset(xkb_layout_index_t layout) { xkb_state_update_mask(state_.get(), 0, 0, 0, 0, 0, layout); }
  void press(xcb_keycode_t key) { xkb_state_update_key(state_.get(), key, XKB_KEY_DOWN); }
  void release(xcb_keycode_t key) { xkb_state_update_key(state_.get(), key, XKB_KEY_UP); }
  std::uint8_t modifiers(xkb_state_component component) const {
    return static_cast<std::uint8_t>(xkb_state_serialize_mods(state_.get(), component) & kRealModifiers);
  }
  xkb_layout_index_t layout(xkb_state_component component) const {
    return xkb_state_serialize_layout(state_.get(), component);
  }
  xkb_keysym_t keysym(xcb_keycode_t key, xkb_layout_index_t layout) const {
    const xkb_keysym_t* keysyms = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap_, key, layout, 0, &keysyms);
    return count == 1 ? keysyms[0] : static_cast<xkb_keysym_t>(XKB_KEY_NoSymbol);
  }

  Effect effectOf(xcb_keycode_t key, xkb_layout_index_t layout) {
    reset(layout);
    press(key);
    Effect effect{modifiers(XKB_STATE_MODS_DEPRESSED), modifiers(XKB_STATE_MODS_LOCKED),
                  this->layout(XKB_STATE_LAYOUT_DEPRESSED) != 0, this->layout(XKB_STATE_LAYOUT_EFFECTIVE) != layout};
    release(key);
    return effect;
  }

 private:
  xkb_keymap* keymap_;
  UniqueCPtr<xkb_state, xkb_state_unref> state_;
};

class Reader {
 public:
  explicit Reader(xkb_keymap* keymap)
      : keyboard_(keymap),
        layouts_(xkb_keymap_num_layouts(keymap)),
        first_(static_cast<xcb_keycode_t>(xkb_keymap_min_keycode(keymap))),
        last_(static_cast<xcb_keycode_t>(std::min<xkb_keycode_t>(xkb_keymap_max_keycode(keymap), 255))) {}

  ModifierKeys read() {
    for (int key = first_; key <= last_; ++key) noteKey(static_cast<xcb_keycode_t>(key));
    keys_.toggledMask = static_cast<std::uint8_t>(keys_.toggledMask & ~keys_.numLockMask);
    for (unsigned long set = 0; set < keys_.combinable.size(); ++set) keys_.combinable[set] = combine(set);
    return keys_;
  }

 private:
  void noteKey(xcb_keycode_t key) {
    keys_.known[key] = keyboard_.knows(key);
    for (xkb_layout_index_t layout = 0; layout < layouts_; ++layout) {
      const Effect effect = keyboard_.effectOf(key, layout);
      if (effect.mask != 0 || effect.shiftsLayout) keys_.holding.set(key);
      if (effect.lockedMask == 0) continue;
      keys_.locking.set(key);
      keys_.toggledMask |= effect.lockedMask;
      if (keyboard_.keysym(key, layout) == XKB_KEY_Num_Lock) keys_.numLockMask |= effect.lockedMask;
    }
    if (!keys_.holding[key]) return;
    for (std::size_t modifier = 0; modifier < kModifierCount; ++modifier) noteSetter(modifier, key);
  }

  // Called in ascending order of key codes: of each pair the left key has the lower one.
  void noteSetter(std::size_t modifier, xcb_keycode_t key) {
    ModifierKeys::Setters& setters = keys_.setters[modifier];
    const std::uint8_t mask = maskSetBy(key, kKeysyms[modifier]);
    if (mask == 0 || (setters.mask != 0 && setters.mask != mask)) return;
    setters.mask = mask;
    setters.keys.push_back(key);
  }

  /// 0 unless the key is one of the pair, and sets the same modifiers and nothing else, in every layout.
  std::uint8_t maskSetBy(xcb_keycode_t key, KeysymPair keysyms) {
    const std::uint8_t mask = keyboard_.effectOf(key, 0).mask;
    for (xkb_layout_index_t layout = 0; layout < layouts_; ++layout) {
      const xkb_keysym_t keysym = keyboard_.keysym(key, layout);
      const Effect effect = keyboard_.effectOf(key, layout);
      const bool isPlain = effect.mask == mask && effect.lockedMask == 0 && !effect.changesLayout;
      if (!isPlain || (keysym != keysyms.left && keysym != keysyms.right)) return 0;
    }
    return mask;
  }

  bool combine(ModifierSet modifiers) {
    std::uint8_t wanted = 0;
    for (std::size_t i = 0; i < kModifierCount; ++i) {
      if (!modifiers[i]) continue;
      if (keys_.setters[i].keys.empty()) return false;
      wanted |= keys_.setters[i].mask;
    }
    for (xkb_layout_index_t layout = 0; layout < layouts_; ++layout) {
      if (!makesExactly(modifiers, wanted, layout)) return false;
    }
    return true;
  }

  bool makesExactly(ModifierSet modifiers, std::uint8_t wanted, xkb_layout_index_t layout) {
    keyboard_.reset(layout);
    for (std::size_t i = 0; i < kModifierCount; ++i) {
      if (modifiers[i]) keyboard_.press(keys_.setters[i].keys.front());
    }
    const bool isExact = keyboard_.modifiers(XKB_STATE_MODS_DEPRESSED) == wanted &&
                         keyboard_.modifiers(XKB_STATE_MODS_LOCKED) == 0 &&
                         keyboard_.layout(XKB_STATE_LAYOUT_EFFECTIVE) == layout;
    for (std::size_t i = 0; i < kModifierCount; ++i) {
      if (modifiers[i]) keyboard_.release(keys_.setters[i].keys.front());
    }
    return isExact;
  }

  SimulatedKeyboard keyboard_;
  xkb_layout_index_t layouts_;
  xcb_keycode_t first_;
  xcb_keycode_t last_;
  ModifierKeys keys_;
};

}  // namespace

bool ModifierKeys::canSet(ModifierSet modifiers) const {
  for (std::size_t i = 0; i < kModifierCount; ++i) {
    if (modifiers[i] && setters[i].mask == 0) return false;
  }
  return true;
}

Chord ModifierKeys::chordFor(ModifierSet modifiers, const KeySet& avoided) const {
  Chord chord;
  for (std::size_t i = 0; i < kModifierCount; ++i) {
    if (!modifiers[i]) continue;
    const auto& keys = setters[i].keys;
    const auto free = std::find_if(keys.begin(), keys.end(), [&](xcb_keycode_t key) { return !avoided[key]; });
    if (free != keys.end() && combinable[modifiers.to_ulong()]) {
      chord.keys.push_back(*free);
    } else {
      chord.lockedMask |= setters[i].mask;
    }
  }
  return chord;
}

bool ModifierKeys::canBeHeldTogether(const KeySet& keys) const {
  ModifierSet modifiers;
  for (std::size_t i = 0; i < kModifierCount; ++i) {
    modifiers[i] =
        std::any_of(setters[i].keys.begin(), setters[i].keys.end(), [&](xcb_keycode_t key) { return keys[key]; });
  }
  return combinable[modifiers.to_ulong()];
}

ModifierKeys modifierKeysOf(xkb_keymap* keymap) { return keymap == nullptr ? ModifierKeys{} : Reader(keymap).read(); }

}  // namespace rondora::x11
