#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/app_language.h"
#include "model/hotkey_config.h"
#include "model/pie_sub_action.h"

// Texts for key combinations; platforms differ only in the names of the modifiers.

namespace rondora {

/// The names of the modifiers, as printed on the keys of a system's keyboards. Used only in texts for the user, never
/// in masks or documents.
struct ModifierNames {
  std::string_view control = "Ctrl";
  std::string_view option = "Alt";
  std::string_view shift = "Shift";
  std::string_view command = "Cmd";
  std::string_view function = "Fn";
};

inline constexpr ModifierNames kMacModifierNames{};
/// A PC keyboard has the Super key in the place of Command.
inline constexpr ModifierNames kPcModifierNames{.command = "Super"};

/// Words: "Ctrl + Alt + Space". Without a hotkey the unassigned text in `language`.
std::string displayString(const std::optional<HotkeyConfig>& hotkey, AppLanguage language,
                          const ModifierNames& names = kMacModifierNames);

/// The modifiers of a Carbon mask, each followed by a plus: "Ctrl + Alt + ".
std::string modifiersInWords(std::int64_t carbonModifiers, const ModifierNames& names = kMacModifierNames);

/// Glyphs without separators: "⌃⌥Space". Empty without a hotkey.
std::string glyphString(const std::optional<HotkeyConfig>& hotkey);

/// The name of the key on a US keyboard, "Key" and the number for a key without one.
std::string keyCodeToString(std::int64_t keyCode);

/// As `displayString` for event flags; key code 0 without modifiers counts as unassigned.
std::string keystrokeDisplayString(std::int64_t keyCode, std::int64_t modifiers, AppLanguage language,
                                   const ModifierNames& names = kMacModifierNames);

/// Text of a menu command's key equivalent, without blanks: "Ctrl+Shift+S". Empty without a key.
std::string menuShortcutText(const MenuShortcut& shortcut, const ModifierNames& names = kMacModifierNames);

}  // namespace rondora
