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
  const KeyboardState state = stateWithoutLockKeys();
  const KeySet held = state.logical | state.synthetic;
  releaseHeld(held & keys_->holding);
  if (held[keystroke.key] && !keys_->holding[keystroke.key]) keyboard_.releaseUnseen(keystroke.key);

  const Chord chord = keys_->chordFor(keystroke.modifiers, unsuitableKeys(state).set(keystroke.key));
  const std::uint8_t during = maskOf(keystroke.lockedMask | chord.lockedMask);
  const std::uint8_t changed = maskOf((state.lockedMask ^ during) & ~keys_->numLockMask);
  typed_ = Typed{keystroke.key, chord, state.lockedMask, maskOf(state.lockedMask ^ changed)};
  if (changed != 0) keyboard_.setLocks(changed, during);
  if (state.latchedMask != 0 || state.stickyKeys) keyboard_.clearLatches();
  for (const xcb_keycode_t key : chord.keys) keyboard_.press(key);
  keyboard_.press(keystroke.key);
}

// The user's release of the same key would end ours; and two keys down at once turn sticky keys off.
KeySet SyntheticTyping::unsuitableKeys(const KeyboardState& state) {
  return state.stickyKeys ? KeySet().set() : state.physical;
}

// The release of a lock key completes its toggle; only then do the locks have the state that the user wants.
KeyboardState SyntheticTyping::stateWithoutLockKeys() {
  KeyboardState state = keyboard_.readState();
  for (int round = 0; round < kMaxRounds && (state.logical & keys_->locking).any(); ++round) {
    forEachKey(state.logical & keys_->locking, [this](xcb_keycode_t key) { keyboard_.release(key); });
    state = keyboard_.readState();
  }
  return state;
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
  const KeyboardState state = stateWithoutLockKeys();
  restoreLocks(typed, state.lockedMask);
  if (correct(state)) settle();
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
    if (!correct(keyboard_.readState())) return;
  }
}

// Returns false when nothing needed correction.
bool SyntheticTyping::correct(const KeyboardState& state) {
  const bool followed = followReleases(state);
  const bool restored = restoreKeys(state);
  if (!followed && !restored) touched_ &= state.synthetic;
  return followed || restored;
}

bool SyntheticTyping::followReleases(const KeyboardState& state) {
  const KeySet heldByUsAlone = touched_ & state.synthetic & ~state.physical;
  forEachKey(heldByUsAlone, [this](xcb_keycode_t key) { keyboard_.release(key); });
  return heldByUsAlone.any();
}

// A lock key would toggle once more, and with sticky keys a modifier would outlive its release.
bool SyntheticTyping::restoreKeys(const KeyboardState& state) {
  const KeySet missing = touched_ & state.physical & ~state.logical & ~keys_->locking;
  const bool canRestore = !state.stickyKeys && keys_->canBeHeldTogether(state.physical & keys_->holding);
  if (missing.none() || !canRestore) return false;
  forEachKey(missing, [&](xcb_keycode_t key) {
    if (state.synthetic[key]) keyboard_.release(key);  // a second press of a key that is down does nothing
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
