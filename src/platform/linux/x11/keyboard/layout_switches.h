#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/x11/keyboard/modifier_keys.h"

struct xkb_keymap;

namespace rondora::x11 {

/// True when one of these modifiers' keys on the left side, while the others are down, switches the layout instead of
/// setting its modifier.
bool switchesLayout(xkb_keymap* keymap, ModifierSet modifiers);

/// Of a keyboard's options ("compose:menu,grp:ctrl_alt_toggle") the one that makes these modifiers switch the layout.
std::optional<std::string> layoutOptionOf(std::string_view options, ModifierSet modifiers);

}  // namespace rondora::x11
