#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rondora::menus {

/// The key equivalent of a menu item in the vocabulary of AXMenuItemCmdChar and AXMenuItemCmdModifiers.
struct MenuKey {
  std::string character;
  std::int64_t modifiers = 0;

  bool operator==(const MenuKey&) const = default;
};

/// GTK's form, "<Primary><Shift>o".
std::optional<MenuKey> menuKeyOfAccelerator(std::string_view text);
/// The form that applications show, "Ctrl+Shift+O", with the modifiers in one of the usual languages.
std::optional<MenuKey> menuKeyOfDisplayText(std::string_view text);
/// The key binding of an accessible action: GTK's "mnemonic;path;accelerator" or a display text.
std::optional<MenuKey> menuKeyOfBinding(std::string_view text);

/// Collects modifiers and key of one combination.
class MenuKeyParser {
 public:
  /// False for a name that is no modifier.
  bool addModifier(std::string_view name);
  /// The key by its X keysym name, its display name or the character itself; nothing when it is unknown.
  std::optional<MenuKey> keyNamed(std::string_view name) const;

 private:
  std::int64_t modifiers_ = 0;
  bool hasCommand_ = false;
};

}  // namespace rondora::menus
