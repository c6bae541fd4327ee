#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "model/app_language.h"
#include "model/hotkey_config.h"

// Texts for key combinations, the same on every platform.

namespace rondora {

inline constexpr std::array<std::int64_t, 4> arrowKeyVirtualCodes = {123, 124, 125, 126};

/// Words: "Ctrl + Alt + Space". Without a hotkey the unassigned text in `language`.
std::string displayString(const std::optional<HotkeyConfig>& hotkey, AppLanguage language);

/// Glyphs without separators: "⌃⌥Space". Empty without a hotkey.
std::string glyphString(const std::optional<HotkeyConfig>& hotkey);

/// The name of the key on a US keyboard, "Key" and the number for a key without one.
std::string keyCodeToString(std::int64_t keyCode);

/// As `displayString` for event flags; key code 0 without modifiers counts as unassigned.
std::string keystrokeDisplayString(std::int64_t keyCode, std::int64_t modifiers, AppLanguage language);

}  // namespace rondora
