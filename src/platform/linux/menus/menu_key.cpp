#include "platform/linux/menus/menu_key.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

#include "base/unicode.h"

namespace rondora::menus {
namespace {

constexpr std::int64_t kShift = 1;
constexpr std::int64_t kOption = 2;
constexpr std::int64_t kControl = 4;
constexpr std::int64_t kNoCommand = 8;
constexpr std::int64_t kCommand = -1;

struct NamedModifier {
  std::string_view name;
  std::int64_t bit;
};

// Names of GTK, dbusmenu and Qt, whose display texts are in the application's language.
constexpr NamedModifier kModifiers[] = {
    {"primary", kControl}, {"control", kControl},  {"ctrl", kControl},   {"ctl", kControl},
    {"strg", kControl},    {"shift", kShift},      {"umschalt", kShift}, {"maj", kShift},
    {"mayús", kShift},     {"mayúsculas", kShift}, {"maiusc", kShift},   {"alt", kOption},
    {"mod1", kOption},     {"super", kCommand},    {"meta", kCommand},   {"mod4", kCommand},
};

struct NamedKey {
  std::string_view name;
  std::string_view character;
};

// Keysym names, then the display names of Qt where they differ.
constexpr NamedKey kKeys[] = {
    {"up", "\uF700"},       {"down", "\uF701"},  {"left", "\uF702"},   {"right", "\uF703"},   {"insert", "\uF727"},
    {"delete", "\uF728"},   {"home", "\uF729"},  {"end", "\uF72B"},    {"page_up", "\uF72C"}, {"page_down", "\uF72D"},
    {"prior", "\uF72C"},    {"next", "\uF72D"},  {"return", "\r"},     {"kp_enter", "\r"},    {"tab", "\t"},
    {"iso_left_tab", "\t"}, {"backspace", "\b"}, {"escape", "\x1B"},   {"space", " "},        {"ins", "\uF727"},
    {"del", "\uF728"},      {"pgup", "\uF72C"},  {"pgdown", "\uF72D"}, {"page up", "\uF72C"}, {"page down", "\uF72D"},
    {"enter", "\r"},        {"esc", "\x1B"},     {"backtab", "\t"},
};

/// U+F704 to U+F726 are F1 to F35.
std::string functionKey(std::string_view lowerName) {
  int number = 0;
  const char* const end = lowerName.data() + lowerName.size();
  if (lowerName.size() < 2 || lowerName.front() != 'f') return {};
  const auto parsed = std::from_chars(lowerName.data() + 1, end, number);
  if (parsed.ptr != end || number < 1 || number > 35) return {};
  constexpr int kLastByteBeforeF1 = 0x83;
  return {'\xEF', '\x9C', static_cast<char>(kLastByteBeforeF1 + number)};
}

std::string characterOfKeysym(std::string_view name) {
  const xkb_keysym_t symbol = xkb_keysym_from_name(std::string(name).c_str(), XKB_KEYSYM_NO_FLAGS);
  std::array<char, 8> text{};
  if (symbol == XKB_KEY_NoSymbol || xkb_keysym_to_utf8(symbol, text.data(), text.size()) <= 1) return {};
  return text.data();
}

std::string characterNamed(std::string_view name) {
  if (!name.empty() && firstCharacter(name) == name) return upperCased(name);
  const std::string lower = lowerCased(name);
  const auto found =
      std::find_if(std::begin(kKeys), std::end(kKeys), [&](const NamedKey& key) { return key.name == lower; });
  if (found != std::end(kKeys)) return std::string(found->character);
  if (std::string key = functionKey(lower); !key.empty()) return key;
  return upperCased(characterOfKeysym(name));
}

}  // namespace

bool MenuKeyParser::addModifier(std::string_view name) {
  const std::string lower = lowerCased(name);
  const auto found = std::find_if(std::begin(kModifiers), std::end(kModifiers),
                                  [&](const NamedModifier& modifier) { return modifier.name == lower; });
  if (found == std::end(kModifiers)) return false;
  if (found->bit == kCommand) hasCommand_ = true;
  if (found->bit != kCommand) modifiers_ |= found->bit;
  return true;
}

std::optional<MenuKey> MenuKeyParser::keyNamed(std::string_view name) const {
  std::string character = characterNamed(name);
  if (character.empty()) return std::nullopt;
  return MenuKey{std::move(character), modifiers_ | (hasCommand_ ? 0 : kNoCommand)};
}

std::optional<MenuKey> menuKeyOfAccelerator(std::string_view text) {
  MenuKeyParser parser;
  while (text.starts_with('<') && text.size() > 1) {
    const std::size_t end = text.find('>');
    if (end == std::string_view::npos || !parser.addModifier(text.substr(1, end - 1))) return std::nullopt;
    text.remove_prefix(end + 1);
  }
  return parser.keyNamed(text);
}

std::optional<MenuKey> menuKeyOfDisplayText(std::string_view text) {
  MenuKeyParser parser;
  for (std::size_t plus = text.find('+'); plus != std::string_view::npos && plus + 1 < text.size();
       plus = text.find('+')) {
    if (plus == 0 || !parser.addModifier(text.substr(0, plus))) return std::nullopt;
    text.remove_prefix(plus + 1);
  }
  return parser.keyNamed(text);
}

std::optional<MenuKey> menuKeyOfBinding(std::string_view text) {
  const std::size_t first = text.find(';');
  const std::size_t second = first == std::string_view::npos ? first : text.find(';', first + 1);
  if (second != std::string_view::npos) return menuKeyOfAccelerator(text.substr(second + 1));
  if (text.starts_with('<')) return menuKeyOfAccelerator(text);
  return menuKeyOfDisplayText(text);
}

}  // namespace rondora::menus
