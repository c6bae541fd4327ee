#include "platform/linux/x11/keyboard/layout_switches.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>

#include "base/owned.h"

namespace rondora::x11 {
namespace {

/// Indexed by Modifier.
struct LeftKey {
  xcb_keycode_t code;
  /// In the names of options.
  std::string_view name;
};
constexpr LeftKey kLeftKeys[kModifierCount] = {{37, "ctrl"}, {64, "alt"}, {50, "shift"}, {133, "win"}};

constexpr std::string_view kLayoutOption = "grp:";

bool isLayoutSwitch(xkb_keysym_t keysym) {
  return keysym == XKB_KEY_Mode_switch || (keysym >= XKB_KEY_ISO_Group_Latch && keysym <= XKB_KEY_ISO_Last_Group_Lock);
}

/// Higher the more of the modifiers the option names, and lower for other ones.
int likeness(std::string_view option, ModifierSet modifiers) {
  constexpr int kOther = -2;
  int result = 0;
  for (std::size_t i = 0; i < kModifierCount; ++i) {
    if (option.find(kLeftKeys[i].name) != option.npos) result += modifiers[i] ? 1 : kOther;
  }
  return result;
}

}  // namespace

bool switchesLayout(xkb_keymap* keymap, ModifierSet modifiers) {
  if (keymap == nullptr) return false;
  for (std::size_t last = 0; last < kModifierCount; ++last) {
    if (!modifiers[last]) continue;
    const UniqueCPtr<xkb_state, xkb_state_unref> state(xkb_state_new(keymap));
    for (std::size_t i = 0; i < kModifierCount; ++i) {
      if (modifiers[i] && i != last) xkb_state_update_key(state.get(), kLeftKeys[i].code, XKB_KEY_DOWN);
    }
    if (isLayoutSwitch(xkb_state_key_get_one_sym(state.get(), kLeftKeys[last].code))) return true;
  }
  return false;
}

std::optional<std::string> layoutOptionOf(std::string_view options, ModifierSet modifiers) {
  std::string_view best;
  while (!options.empty()) {
    const std::string_view option = options.substr(0, options.find(','));
    options.remove_prefix(std::min(option.size() + 1, options.size()));
    if (!option.starts_with(kLayoutOption)) continue;
    if (best.empty() || likeness(option, modifiers) > likeness(best, modifiers)) best = option;
  }
  return best.empty() ? std::nullopt : std::optional<std::string>(best);
}

}  // namespace rondora::x11
