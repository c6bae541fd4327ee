#include "input/hotkeys/hotkey_hid_tap.h"

#include <algorithm>

namespace rondora {
namespace {

constexpr HotkeyConfig kCommandTab{kTabKeyCode, carbon::kCommand};
constexpr HotkeyConfig kCommandShiftTab{kTabKeyCode, carbon::kCommand | carbon::kShift};

bool needsTap(const PieMenu& menu) { return menu.hasLiveHotkey() && HotkeyHIDTap::serves(menu.hotkey); }

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
  if (!hasPort()) return;
  claimsCommandTab_ = hasBinding(kCommandTab);
  claimsCommandShiftTab_ = hasBinding(kCommandShiftTab);
}

void HotkeyHIDTap::stop() {
  carbonBacksUpCommandTab_ = false;
  claimsCommandTab_ = false;
  claimsCommandShiftTab_ = false;
  bindings_.clear();
}

}  // namespace rondora
