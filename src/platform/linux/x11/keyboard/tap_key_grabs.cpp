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
  if (key.keyCode == kFnKeyCode) return;
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

void TapKeyGrabs::collect() const {
  for (Grab& grab : grabs_) {
    if (!grab.request) continue;
    grab.isGranted = keyboard_.isGranted(*std::exchange(grab.request, std::nullopt));
    trace::line("grab: tap ", int{grab.code}, grab.isGranted ? " is ours" : " belongs to another client");
  }
}

// All requests go out before the first reply is awaited.
void TapKeyGrabs::grabAll() {
  isGrabbing_ = true;
  for (Grab& grab : grabs_) request(grab);
  collect();
  for (const Grab& grab : grabs_) {
    if (!isDue(grab)) keyboard_.ungrab(grab.code, grab.modifiers);
  }
  connection_.flush();
}

void TapKeyGrabs::ungrabAll() {
  if (!std::exchange(isGrabbing_, false)) return;
  collect();
  for (const Grab& grab : grabs_) keyboard_.ungrab(grab.code, grab.modifiers);
  connection_.flush();
}

void TapKeyGrabs::retake() {
  collect();
  for (Grab& grab : grabs_) {
    if (!isDue(grab)) continue;
    keyboard_.ungrab(grab.code, grab.modifiers);
    request(grab);
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
  for (Grab& grab : grabs_) {
    if (!grab.needsFn) continue;
    isHeld ? request(grab) : keyboard_.ungrab(grab.code, grab.modifiers);
  }
  connection_.flush();
}

bool TapKeyGrabs::isGranted(const TapKey& key) const {
  collect();
  return std::any_of(grabs_.begin(), grabs_.end(), [&](const Grab& grab) {
    return grab.key.keyCode == key.keyCode && grab.key.carbonModifiers == key.carbonModifiers && grab.isGranted;
  });
}

bool TapKeyGrabs::contain(xcb_keycode_t code, std::uint16_t state) const {
  const std::uint32_t held = state & kAllModifiers;
  return std::any_of(grabs_.begin(), grabs_.end(), [&](const Grab& grab) {
    if (grab.code != code || !isDue(grab)) return false;
    return grab.modifiers.front() == kAnyModifier || std::ranges::count(grab.modifiers, held) > 0;
  });
}

}  // namespace rondora::x11
