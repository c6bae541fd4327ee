#include "unit/x11/server_model.h"

namespace rondora::x11 {
namespace {

constexpr std::uint8_t kShiftMask = 0x01, kLockMask = 0x02, kControlMask = 0x04, kAltMask = 0x08, kNumMask = 0x10,
                       kSuperMask = 0x40, kLevel3Mask = 0x80;

const std::map<xcb_keycode_t, std::uint8_t> kMasks = {
    {kShiftL, kShiftMask},     {kShiftR, kShiftMask},  {kControlL, kControlMask},
    {kControlR, kControlMask}, {kAltL, kAltMask},      {kSuperL, kSuperMask},
    {kAltGr, kLevel3Mask},     {kCapsLock, kLockMask}, {kNumLock, kNumMask}};

std::uint8_t maskOf(xcb_keycode_t key) {
  const auto found = kMasks.find(key);
  return found == kMasks.end() ? std::uint8_t{0} : found->second;
}

}  // namespace

ModifierKeys ServerModel::modifierKeys() {
  ModifierKeys keys;
  keys.known.set();
  for (const auto& [key, mask] : kMasks) keys.holding.set(key);
  keys.locking.set(kCapsLock).set(kNumLock);
  keys.toggledMask = kLockMask;
  keys.numLockMask = kNumMask;
  keys.setters = {{{kControlMask, {kControlL, kControlR}},
                   {kAltMask, {kAltL}},
                   {kShiftMask, {kShiftL, kShiftR}},
                   {kSuperMask, {kSuperL}}}};
  keys.combinable.set();
  return keys;
}

KeyboardState ServerModel::readState() {
  KeyboardState state;
  locksMayMove = true;
  meanwhile();
  state.logical = logical_;
  locksMayMove = false;
  meanwhile();
  state.synthetic = synthetic_;
  for (const KeySet& keyboard : keyboards_) {
    meanwhile();
    state.physical |= keyboard;
  }
  meanwhile();
  state.lockedMask = locked_;
  return state;
}

void ServerModel::press(xcb_keycode_t key) {
  meanwhile();
  if (synthetic_[key]) return;
  synthetic_.set(key);
  take(key, true);
}

void ServerModel::release(xcb_keycode_t key) {
  meanwhile();
  synthetic_.reset(key);
  take(key, false);
}

void ServerModel::releaseUnseen(xcb_keycode_t key) {
  meanwhile();
  isHidden_ = true;
  release(key);
  isHidden_ = false;
}

void ServerModel::setLocks(std::uint8_t affected, std::uint8_t locked) {
  meanwhile();
  locked_ = static_cast<std::uint8_t>((locked_ & ~affected) | (locked & affected));
}

void ServerModel::userMoves(std::size_t keyboard, xcb_keycode_t key) {
  keyboards_[keyboard].flip(key);
  take(key, keyboards_[keyboard][key]);
}

KeySet ServerModel::physical() const {
  KeySet keys;
  for (const KeySet& keyboard : keyboards_) keys |= keyboard;
  return keys;
}

std::uint8_t ServerModel::heldModifiers() const {
  std::uint8_t held = 0;
  for (const auto& [key, mask] : kMasks) held |= logical_[key] ? mask : std::uint8_t{0};
  return held;
}

void ServerModel::take(xcb_keycode_t key, bool isPress) {
  if (logical_[key] == isPress) return;
  events.push_back({key, isPress, static_cast<std::uint8_t>(heldModifiers() | locked_), !isHidden_});
  logical_[key] = isPress;
  if (!isLock(key)) return;
  if (isPress) {
    unlocks_[key] = locked_ & maskOf(key);
    locked_ |= maskOf(key);
  } else {
    locked_ = static_cast<std::uint8_t>(locked_ & ~unlocks_[key]);
  }
}

}  // namespace rondora::x11
