#include "platform/linux/x11/typing/synthetic_typing.h"

#include <utility>

namespace rondora::x11 {
namespace {

// Each further round follows a key that the user pressed or released during the previous one.
constexpr int kMaxRounds = 16;

template <class Function>
void forEachKey(const KeySet& keys, Function function) {
  for (std::size_t key = 0; key < keys.size(); ++key) {
    if (keys[key]) function(static_cast<xcb_keycode_t>(key));
  }
}

constexpr std::uint8_t maskOf(int bits) { return static_cast<std::uint8_t>(bits); }

}  // namespace

void SyntheticTyping::down(std::shared_ptr<const ModifierKeys> keys, const SyntheticKeystroke& keystroke) {
  if (typed_) up();
  keys_ = std::move(keys);
  const KeyboardLook look = lookWithoutLockKeys();
  const KeySet held = look.logical | look.synthetic;
  releaseHeld(held & keys_->holding);
  if (held[keystroke.key] && !keys_->holding[keystroke.key]) keyboard_.releaseUnseen(keystroke.key);

  const Chord chord = keys_->chordFor(keystroke.modifiers, unsuitableKeys(look).set(keystroke.key));
  const std::uint8_t during = maskOf(keystroke.lockedMask | chord.lockedMask);
  const std::uint8_t changed = maskOf((look.lockedMask ^ during) & ~keys_->numLockMask);
  typed_ = Typed{keystroke.key, chord, look.lockedMask, maskOf(look.lockedMask ^ changed)};
  if (changed != 0) keyboard_.setLocks(changed, during);
  if (look.latchedMask != 0 || look.stickyKeys) keyboard_.clearLatches();
  for (const xcb_keycode_t key : chord.keys) keyboard_.press(key);
  keyboard_.press(keystroke.key);
}

// The user's release of the same key would end ours; and two keys down at once turn sticky keys off.
KeySet SyntheticTyping::unsuitableKeys(const KeyboardLook& look) {
  return look.stickyKeys ? KeySet().set() : look.physical;
}

// The release of a lock key completes its toggle; only then do the locks have the state that the user wants.
KeyboardLook SyntheticTyping::lookWithoutLockKeys() {
  KeyboardLook look = keyboard_.look();
  for (int round = 0; round < kMaxRounds && (look.logical & keys_->locking).any(); ++round) {
    forEachKey(look.logical & keys_->locking, [this](xcb_keycode_t key) { keyboard_.release(key); });
    look = keyboard_.look();
  }
  return look;
}

void SyntheticTyping::releaseHeld(const KeySet& keys) {
  touched_ |= keys;
  forEachKey(keys, [this](xcb_keycode_t key) { keyboard_.release(key); });
}

void SyntheticTyping::up() {
  if (!typed_) return;
  const Typed typed = *std::exchange(typed_, std::nullopt);
  keyboard_.release(typed.key);
  if (keys_->holding[typed.key]) touched_.set(typed.key);
  for (auto key = typed.chord.keys.rbegin(); key != typed.chord.keys.rend(); ++key) {
    keyboard_.release(*key);
    touched_.set(*key);
  }
  const KeyboardLook look = lookWithoutLockKeys();
  restoreLocks(typed, look.lockedMask);
  if (correct(look)) settle();
}

// A lock that the user toggled during the keystroke is toggled from its earlier state.
void SyntheticTyping::restoreLocks(const Typed& typed, std::uint8_t locked) {
  const int toggled = (locked ^ typed.during) & keys_->toggledMask;
  const std::uint8_t wanted = maskOf(typed.before ^ toggled);
  const std::uint8_t changed = maskOf((locked ^ wanted) & ~keys_->numLockMask);
  if (changed != 0) keyboard_.setLocks(changed, wanted);
}

void SyntheticTyping::settle() {
  for (int round = 0; round < kMaxRounds && touched_.any(); ++round) {
    if (!correct(keyboard_.look())) return;
  }
}

// Returns false when nothing needed correction.
bool SyntheticTyping::correct(const KeyboardLook& look) {
  const bool followed = followReleases(look);
  const bool gaveBack = restoreKeys(look);
  if (!followed && !gaveBack) touched_ &= look.synthetic;
  return followed || gaveBack;
}

bool SyntheticTyping::followReleases(const KeyboardLook& look) {
  const KeySet heldByUsAlone = touched_ & look.synthetic & ~look.physical;
  forEachKey(heldByUsAlone, [this](xcb_keycode_t key) { keyboard_.release(key); });
  return heldByUsAlone.any();
}

// A lock key would toggle once more, and with sticky keys a modifier would outlive its release.
bool SyntheticTyping::restoreKeys(const KeyboardLook& look) {
  const KeySet missing = touched_ & look.physical & ~look.logical & ~keys_->locking;
  const bool canGiveBack = !look.stickyKeys && keys_->canBeHeldTogether(look.physical & keys_->holding);
  if (missing.none() || !canGiveBack) return false;
  forEachKey(missing, [&](xcb_keycode_t key) {
    if (look.synthetic[key]) keyboard_.release(key);  // a second press of a key that is down does nothing
    keyboard_.press(key);
  });
  return true;
}

void SyntheticTyping::finish() {
  up();
  forEachKey(touched_, [this](xcb_keycode_t key) { keyboard_.release(key); });
  touched_.reset();
}

}  // namespace rondora::x11
