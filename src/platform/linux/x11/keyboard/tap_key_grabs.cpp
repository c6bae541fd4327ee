#include "platform/linux/x11/keyboard/tap_key_grabs.h"

#include <algorithm>
#include <utility>

#include "base/trace.h"
#include "model/carbon_modifiers.h"
#include "model/hotkey_config.h"
#include "platform/linux/x11/keyboard/key_codes.h"

namespace rondora::x11 {
namespace {

constexpr std::uint16_t kAllModifiers = 0xFF;
constexpr std::uint32_t kAnyModifier = XCB_INPUT_MODIFIER_MASK_ANY;

bool hasFn(const TapKey& key) {
  return key.keyCode == kFnKeyCode || HotkeyConfig{key.keyCode, key.carbonModifiers}.hasFunctionModifier();
}

}  // namespace

xcb_keycode_t fnKey() { return *xKeyCode(static_cast<std::uint32_t>(kFnKeyCode)); }

TapKeyGrabs::TapKeyGrabs(const X11Connection& connection, const X11Keymap& keymap, const Xi2Keyboard& keyboard,
                         std::span<const TapKey> keys)
    : connection_(connection), keymap_(keymap), keyboard_(keyboard) {
  for (const TapKey& key : keys) add(key);
}

// The masks are those of now: the tap is made anew when the modifiers move.
void TapKeyGrabs::add(const TapKey& key) {
  if (hasFn(key) && !std::exchange(bindsFn_, true)) grabs_.push_back({{kFnKeyCode, 0}, fnKey(), {kAnyModifier}});
  if (key.keyCode == kFnKeyCode || !std::in_range<std::uint32_t>(key.keyCode) ||
      !std::in_range<std::uint32_t>(key.carbonModifiers)) {
    return;
  }
  const auto code = xKeyCode(static_cast<std::uint32_t>(key.keyCode));
  const auto modifiers = keymap_.xModifiers(static_cast<std::uint32_t>(key.carbonModifiers & ~carbon::kFunction));
  if (!code || !modifiers) return;
  Grab grab{key, *code, {}, hasFn(key)};
  for (const std::uint16_t locks : keymap_.masks().lockCombinations()) {
    grab.modifiers.push_back(static_cast<std::uint32_t>(*modifiers | locks));
  }
  grabs_.push_back(std::move(grab));
}

void TapKeyGrabs::request(Grab& grab) const {
  if (grab.request) xcb_discard_reply(connection_.get(), grab.request->sequence);
  grab.request = keyboard_.grab(grab.code, grab.modifiers);
}

// The grab of a key with Fn may be the one without, too.
void TapKeyGrabs::ungrab(const Grab& grab) const {
  const bool isShared = std::ranges::any_of(grabs_, [&](const Grab& other) {
    return isDue(other) && other.code == grab.code && other.modifiers == grab.modifiers;
  });
  if (!isShared) keyboard_.ungrab(grab.code, grab.modifiers);
}

void TapKeyGrabs::collect() const {
  for (Grab& grab : grabs_) {
    if (!grab.request) continue;
    grab.isRefused = !keyboard_.isGranted(*std::exchange(grab.request, std::nullopt));
    trace::line("grab: tap ", int{grab.code}, grab.isRefused ? " belongs to another client" : " is ours");
  }
}

// All requests go out before the first reply is awaited.
void TapKeyGrabs::grabAll() {
  isGrabbing_ = true;
  for (Grab& grab : grabs_) {
    if (isDue(grab)) request(grab);
  }
  collect();
}

void TapKeyGrabs::ungrabAll() {
  if (!std::exchange(isGrabbing_, false)) return;
  collect();
  for (const Grab& grab : grabs_) ungrab(grab);
  connection_.flush();
}

// An identical grab of the same client replaces the old one without a gap.
void TapKeyGrabs::retake() {
  collect();
  for (Grab& grab : grabs_) {
    if (isDue(grab)) request(grab);
  }
  connection_.flush();
}

void TapKeyGrabs::renew(xcb_keycode_t code) {
  for (Grab& grab : grabs_) {
    if (grab.code == code && isDue(grab)) request(grab);
  }
}

void TapKeyGrabs::setFnHeld(bool isHeld) {
  isFnHeld_ = isHeld;
  if (!isGrabbing_) return;
  for (Grab& grab : grabs_) {
    if (!grab.needsFn) continue;
    isHeld ? request(grab) : ungrab(grab);
  }
  connection_.flush();
}

const TapKeyGrabs::Grab* TapKeyGrabs::grabOf(const TapKey& key) const {
  const auto found = std::ranges::find_if(grabs_, [&](const Grab& grab) {
    return grab.key.keyCode == key.keyCode && grab.key.carbonModifiers == key.carbonModifiers;
  });
  return found == grabs_.end() ? nullptr : &*found;
}

bool TapKeyGrabs::isGranted(const TapKey& key) const {
  const Grab* grab = grabOf(key);
  if (grab == nullptr || !isGrabbing_ || isRefused(key)) return false;
  return !grab->needsFn || !isRefused({kFnKeyCode, 0});
}

bool TapKeyGrabs::isRefused(const TapKey& key) const {
  collect();
  const Grab* grab = grabOf(key);
  return grab != nullptr && grab->isRefused;
}

bool TapKeyGrabs::contain(xcb_keycode_t code, std::uint16_t state) const {
  const std::uint32_t held = state & kAllModifiers;
  return std::any_of(grabs_.begin(), grabs_.end(), [&](const Grab& grab) {
    if (grab.code != code || !isDue(grab)) return false;
    return grab.modifiers.front() == kAnyModifier || std::ranges::count(grab.modifiers, held) > 0;
  });
}

}  // namespace rondora::x11
