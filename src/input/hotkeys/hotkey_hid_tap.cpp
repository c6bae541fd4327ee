#include "input/hotkeys/hotkey_hid_tap.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/key_event.h"

namespace rondora {
namespace {

constexpr HotkeyConfig kCommandTab{kTabKeyCode, carbon::kCommand};
constexpr HotkeyConfig kCommandShiftTab{kTabKeyCode, carbon::kCommand | carbon::kShift};

constexpr std::int64_t kMatchedModifiers =
    carbon::kCommand | carbon::kShift | carbon::kOption | carbon::kControl | carbon::kFunction;
constexpr std::uint64_t kCommandOptionOrShift = event_flags::kCommand | event_flags::kOption | event_flags::kShift;

constexpr std::uint64_t bitOf(std::uint32_t eventType) { return std::uint64_t{1} << eventType; }
constexpr std::uint64_t kEventMask =
    bitOf(tap_events::kKeyDown) | bitOf(tap_events::kKeyUp) | bitOf(tap_events::kFlagsChanged);

bool needsTap(const PieMenu& menu) { return menu.hasLiveHotkey() && HotkeyHIDTap::serves(menu.hotkey); }

/// Whether a change of flags may be one of the Fn key.
bool concernsFn(std::int64_t keyCode, std::uint64_t flags) {
  if (keyCode == kFnKeyCode) return true;
  if ((flags & kCommandOptionOrShift) != 0) return false;
  return (flags & event_flags::kFunction) != 0 && (flags & event_flags::kControl) == 0;
}

}  // namespace

bool HotkeyHIDTap::serves(const HotkeyConfig& hotkey) {
  return hotkey.isStandaloneFn() || hotkey.hasFunctionModifier() || hotkey.isCommandTabStyle();
}

bool HotkeyHIDTap::requiresAccessibility(const std::vector<PieMenu>& menus) {
  return std::any_of(menus.begin(), menus.end(), needsTap);
}

void HotkeyHIDTap::bind(const HotkeyConfig& hotkey, std::uint32_t index) {
  const auto found = std::find_if(bindings_.begin(), bindings_.end(),
                                  [&](const Binding& binding) { return binding.hotkey == hotkey; });
  if (found != bindings_.end()) return found->indices.push_back(index);
  bindings_.push_back({hotkey, {index}, hotkey.isStandaloneFn()});
}

bool HotkeyHIDTap::hasBinding(const HotkeyConfig& hotkey) const {
  return std::any_of(bindings_.begin(), bindings_.end(),
                     [&](const Binding& binding) { return binding.hotkey == hotkey; });
}

void HotkeyHIDTap::start(const std::vector<PieMenu>& menus) {
  stop();
  for (std::size_t i = 0; i < menus.size(); ++i) {
    if (needsTap(menus[i])) bind(menus[i].hotkey, static_cast<std::uint32_t>(i));
  }
  if (bindings_.empty() || !createPort()) return;
  claimsCommandTab_ = hasBinding(kCommandTab);
  claimsCommandShiftTab_ = hasBinding(kCommandShiftTab);
  secureInputActive_ = ports_.secureInput.isEnabled();
  applySwitcherRule();
  if (claimsCommandTab_ || claimsCommandShiftTab_) startSecureInputWatch();
}

bool HotkeyHIDTap::createPort() {
  std::vector<TapKey> keys;
  for (const Binding& binding : bindings_) keys.push_back({binding.hotkey.keyCode, binding.hotkey.carbonModifiers});
  port_ = ports_.eventTaps.create(
      kEventMask, keys, weakSelf_.bind([](HotkeyHIDTap& self, auto... event) { return self.handleEvent(event...); }));
  if (!port_) {
    ports_.log.error("HID event tap unavailable: accessibility not granted");
    return false;
  }
  runLoopSource_ = port_->addToRunLoop();
  port_->enable(true);
  return true;
}

void HotkeyHIDTap::stop() {
  secureInputTimer_.reset();
  setCarbonBacksUpCommandTab(false);
  claimsCommandTab_ = false;
  claimsCommandShiftTab_ = false;
  ports_.switcher.restore();
  runLoopSource_.reset();
  if (port_) port_->enable(false);
  port_.reset();
  bindings_.clear();
  standaloneFnDown_ = false;
}

bool HotkeyHIDTap::deliversKeyEvents() const {
  if (!port_) return false;
  const auto taps = ports_.eventTaps.list();
  return std::any_of(taps.begin(), taps.end(), [own = ports_.eventTaps.ownProcess()](const EventTapRecord& tap) {
    return tap.tappingProcess == own && tap.enabled && (tap.eventsOfInterest & bitOf(tap_events::kKeyDown)) != 0;
  });
}

bool HotkeyHIDTap::delivers(const HotkeyConfig& hotkey) const {
  return hasBinding(hotkey) && deliversKeyEvents() && port_->receives({hotkey.keyCode, hotkey.carbonModifiers});
}

void HotkeyHIDTap::retakeKeys() const {
  if (port_) port_->retake();
}

void HotkeyHIDTap::setCarbonBacksUpCommandTab(bool backsUp) {
  carbonBacksUpCommandTab_ = backsUp;
  if (port_) applySwitcherRule();
}

// Under secure input the tap is blind: the user gets the system's switcher back unless the hot-key service serves its
// keys.
void HotkeyHIDTap::applySwitcherRule() {
  if (secureInputActive_ && !carbonBacksUpCommandTab_) return ports_.switcher.restore();
  ports_.switcher.suspend(claimsCommandTab_, claimsCommandShiftTab_);
}

void HotkeyHIDTap::startSecureInputWatch() {
  if (secureInputActive_) ports_.log.standard("secure event input is on at start");
  secureInputTimer_ = ports_.mainQueue.timer(kSecureInputInterval, 0,
                                             weakSelf_.bind([](HotkeyHIDTap& self) { self.watchSecureInput(); }));
}

void HotkeyHIDTap::watchSecureInput() {
  retakeKeys();
  const bool isActive = ports_.secureInput.isEnabled();
  if (std::exchange(secureInputActive_, isActive) == isActive) return;
  ports_.log.standard(std::string("secure event input ") + (isActive ? "on" : "off") +
                      ", carbon backup=" + (carbonBacksUpCommandTab_ ? "true" : "false"));
  if (port_) applySwitcherRule();
}

TapVerdict HotkeyHIDTap::handleEvent(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags) {
  switch (type) {
    case tap_events::kDisabledByTimeout:
    case tap_events::kDisabledByUserInput:
      ports_.log.error("event tap disabled by system (" + std::to_string(type) + "), re-enabling");
      if (port_) port_->enable(true);
      return TapVerdict::pass;
    case tap_events::kKeyDown:
    case tap_events::kKeyUp:
      return handleKey(type, keyCode, flags);
    case tap_events::kFlagsChanged:
      return handleFlags(keyCode, flags);
    default:
      return TapVerdict::pass;
  }
}

TapVerdict HotkeyHIDTap::handleKey(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags) {
  const HotkeyConfig pressed{keyCode, CarbonModifiers::carbon(flags) & kMatchedModifiers};
  const auto found = std::find_if(bindings_.begin(), bindings_.end(), [&](const Binding& binding) {
    return !binding.isStandaloneFn && binding.hotkey == pressed;
  });
  if (found == bindings_.end()) return TapVerdict::pass;
  if (type == tap_events::kKeyUp) {
    dispatchReleased(found->indices);
  } else {
    const std::uint64_t required = CarbonModifiers::eventFlags(pressed.carbonModifiers);
    const bool areHeld = allHeld(ports_.eventMonitors.currentModifierFlags(), required);
    dispatchPressed(found->indices, areHeld ? ModifierHold::held : ModifierHold::latched);
  }
  return TapVerdict::swallow;
}

TapVerdict HotkeyHIDTap::handleFlags(std::int64_t keyCode, std::uint64_t flags) {
  if (!hasStandaloneFn() || !concernsFn(keyCode, flags)) return TapVerdict::pass;
  const bool isDown = (flags & event_flags::kFunction) != 0;
  const bool wasDown = std::exchange(standaloneFnDown_, isDown);
  if (isDown && !wasDown) dispatchPressed(standaloneFnIndices(), ModifierHold::held);
  if (!isDown && wasDown) dispatchReleased(standaloneFnIndices());
  return isDown || wasDown ? TapVerdict::swallow : TapVerdict::pass;
}

bool HotkeyHIDTap::hasStandaloneFn() const {
  return std::any_of(bindings_.begin(), bindings_.end(), [](const Binding& binding) { return binding.isStandaloneFn; });
}

std::vector<std::uint32_t> HotkeyHIDTap::standaloneFnIndices() const {
  std::vector<std::uint32_t> indices;
  for (const Binding& binding : bindings_) {
    if (binding.isStandaloneFn) indices.insert(indices.end(), binding.indices.begin(), binding.indices.end());
  }
  return indices;
}

void HotkeyHIDTap::dispatchPressed(std::vector<std::uint32_t> indices, ModifierHold modifiers) {
  ports_.mainQueue.async(weakSelf_.bind([indices = std::move(indices), modifiers](HotkeyHIDTap& self) {
    if (self.onPressed) self.onPressed(indices, modifiers);
  }));
}

void HotkeyHIDTap::dispatchReleased(std::vector<std::uint32_t> indices) {
  ports_.mainQueue.async(weakSelf_.bind([indices = std::move(indices)](HotkeyHIDTap& self) {
    if (self.onReleased) self.onReleased(indices);
  }));
}

}  // namespace rondora
