#include "input/hotkeys/hotkey_display.h"

#include <algorithm>
#include <string_view>

#include "platform/key_event.h"

namespace rondora {
namespace {

struct KeyName {
  std::int64_t keyCode = 0;
  std::string_view name;
};

constexpr KeyName kKeyNames[] = {
    {0, "A"},      {1, "S"},           {2, "D"},       {3, "F"},         {4, "H"},         {5, "G"},     {6, "Z"},
    {7, "X"},      {8, "C"},           {9, "V"},       {10, "§"},        {11, "B"},        {12, "Q"},    {13, "W"},
    {14, "E"},     {15, "R"},          {16, "Y"},      {17, "T"},        {18, "1"},        {19, "2"},    {20, "3"},
    {21, "4"},     {22, "6"},          {23, "5"},      {24, "="},        {25, "9"},        {26, "7"},    {27, "-"},
    {28, "8"},     {29, "0"},          {30, "]"},      {31, "O"},        {32, "U"},        {33, "["},    {34, "I"},
    {35, "P"},     {36, "Return"},     {37, "L"},      {38, "J"},        {39, "'"},        {40, "K"},    {41, ";"},
    {42, "\\"},    {43, ","},          {44, "/"},      {45, "N"},        {46, "M"},        {47, "."},    {48, "Tab"},
    {49, "Space"}, {50, "`"},          {51, "Delete"}, {53, "Esc"},      {63, "Fn"},       {64, "F17"},  {79, "F18"},
    {80, "F19"},   {90, "F20"},        {96, "F5"},     {97, "F6"},       {98, "F7"},       {99, "F3"},   {100, "F8"},
    {101, "F9"},   {103, "F11"},       {105, "F13"},   {106, "F16"},     {107, "F14"},     {109, "F10"}, {111, "F12"},
    {113, "F15"},  {114, "Help"},      {115, "Home"},  {116, "Page Up"}, {117, "Fwd Del"}, {118, "F4"},  {119, "End"},
    {120, "F2"},   {121, "Page Down"}, {122, "F1"},    {123, "←"},       {124, "→"},       {125, "↓"},   {126, "↑"},
};
static_assert(std::size(kKeyNames) == 84);

constexpr KeyName kGlyphOverrides[] = {{36, "↩"}, {48, "⇥"}, {51, "⌫"}, {53, "⎋"}, {117, "⌦"}};

struct ModifierWord {
  std::int64_t carbonMask = 0;
  std::uint64_t eventFlag = 0;
  std::string_view ModifierNames::*name = nullptr;
};

constexpr ModifierWord kWords[] = {
    {carbon::kControl, event_flags::kControl, &ModifierNames::control},
    {carbon::kOption, event_flags::kOption, &ModifierNames::option},
    {carbon::kShift, event_flags::kShift, &ModifierNames::shift},
    {carbon::kCommand, event_flags::kCommand, &ModifierNames::command},
    {carbon::kFunction, event_flags::kFunction, &ModifierNames::function},
};

struct ModifierGlyph {
  std::int64_t carbonMask = 0;
  std::string_view glyph;
};

constexpr ModifierGlyph kGlyphs[] = {
    {carbon::kFunction, "fn "}, {carbon::kControl, "⌃"}, {carbon::kOption, "⌥"},
    {carbon::kShift, "⇧"},      {carbon::kCommand, "⌘"},
};

template <std::size_t size>
std::optional<std::string_view> lookUp(const KeyName (&table)[size], std::int64_t keyCode) {
  const auto found = std::find_if(std::begin(table), std::end(table),
                                  [keyCode](const KeyName& row) { return row.keyCode == keyCode; });
  if (found == std::end(table)) return std::nullopt;
  return found->name;
}

std::string_view unassignedText(AppLanguage language) {
  return language == AppLanguage::russian ? "Не назначено" : "Unassigned";
}

struct CharacterName {
  std::string_view character;
  std::string_view name;
};

/// Characters of key equivalents that are not what they type. Function keys are beside them, U+F704 for F1.
constexpr CharacterName kCharacterNames[] = {
    {" ", "Space"},     {"\r", "Return"},      {"\t", "Tab"},         {"\b", "Backspace"},
    {"\x1B", "Esc"},    {"\x7F", "Backspace"}, {"\uF700", "↑"},       {"\uF701", "↓"},
    {"\uF702", "←"},    {"\uF703", "→"},       {"\uF727", "Insert"},  {"\uF728", "Delete"},
    {"\uF729", "Home"}, {"\uF72B", "End"},     {"\uF72C", "Page Up"}, {"\uF72D", "Page Down"},
};

/// "F1" to "F35", in UTF-8 EF 9C 84 to EF 9C A6; empty for any other character.
std::string functionKeyName(std::string_view character) {
  constexpr unsigned char kFirst = 0x84;
  constexpr unsigned char kLast = 0xA6;
  if (character.size() != 3 || !character.starts_with("\xEF\x9C")) return {};
  const auto last = static_cast<unsigned char>(character[2]);
  return last < kFirst || last > kLast ? "" : "F" + std::to_string(last - kFirst + 1);
}

std::string characterName(const std::string& character) {
  for (const CharacterName& each : kCharacterNames) {
    if (each.character == character) return std::string(each.name);
  }
  const std::string functionKey = functionKeyName(character);
  return functionKey.empty() ? character : functionKey;
}

/// `isHeld` tells which modifiers take part.
std::string wordsOfModifiers(const ModifierNames& names, auto isHeld) {
  std::string text;
  for (const ModifierWord& word : kWords) {
    if (isHeld(word)) text.append(names.*word.name).append(" + ");
  }
  return text;
}

}  // namespace

std::string keyCodeToString(std::int64_t keyCode) {
  if (const auto name = lookUp(kKeyNames, keyCode)) return std::string(*name);
  return "Key" + std::to_string(keyCode);
}

std::string displayString(const std::optional<HotkeyConfig>& hotkey, AppLanguage language, const ModifierNames& names) {
  if (!hotkey || !hotkey->isAssigned()) return std::string(unassignedText(language));
  return modifiersInWords(hotkey->carbonModifiers, names) + keyCodeToString(hotkey->keyCode);
}

std::string modifiersInWords(std::int64_t carbonModifiers, const ModifierNames& names) {
  return wordsOfModifiers(names, [&](const ModifierWord& word) { return (carbonModifiers & word.carbonMask) != 0; });
}

std::string glyphString(const std::optional<HotkeyConfig>& hotkey) {
  if (!hotkey || !hotkey->isAssigned()) return {};
  std::string text;
  for (const auto& [carbonMask, glyph] : kGlyphs) {
    if ((hotkey->carbonModifiers & carbonMask) != 0) text += glyph;
  }
  if (const auto override = lookUp(kGlyphOverrides, hotkey->keyCode)) return text.append(*override);
  return text + keyCodeToString(hotkey->keyCode);
}

std::string menuShortcutText(const MenuShortcut& shortcut, const ModifierNames& names) {
  if (shortcut.character.empty()) return {};
  constexpr std::int64_t kShift = 1;
  constexpr std::int64_t kOption = 2;
  constexpr std::int64_t kControl = 4;
  constexpr std::int64_t kNoCommand = 8;
  const auto has = [&shortcut](std::int64_t bit) { return (shortcut.modifiers & bit) != 0; };
  std::string text;
  if (has(kControl)) text.append(names.control).append("+");
  if (has(kOption)) text.append(names.option).append("+");
  if (has(kShift)) text.append(names.shift).append("+");
  if (!has(kNoCommand)) text.append(names.command).append("+");
  return text + characterName(shortcut.character);
}

std::string keystrokeDisplayString(std::int64_t keyCode, std::int64_t modifiers, AppLanguage language,
                                   const ModifierNames& names) {
  if (keyCode == 0 && modifiers == 0) return std::string(unassignedText(language));
  const auto flags = static_cast<std::uint64_t>(modifiers);
  return wordsOfModifiers(names, [flags](const ModifierWord& word) { return (flags & word.eventFlag) != 0; }) +
         keyCodeToString(keyCode);
}

}  // namespace rondora
