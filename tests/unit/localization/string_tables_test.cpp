#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/unicode.h"
#include "localization/string_table.h"

namespace rondora {
namespace {

/// Texts that are rightly the same in two languages: names of products and the like. A text that stands here twice has
/// been looked at; any other is a translation that was forgotten.
const std::set<std::pair<AppLanguage, StringKey>> kSharedOnPurpose = {
    {AppLanguage::spanish, StringKey::settingsLanguage},  // "Idioma:" in both
    {AppLanguage::portuguese, StringKey::settingsLanguage},
    {AppLanguage::spanish, StringKey::settingsCopy},  // "Copiar" in both
    {AppLanguage::portuguese, StringKey::settingsCopy},
};

/// How the letters begin, in UTF-8, that a text in the language cannot do without. The others are written like English.
const std::map<AppLanguage, std::vector<std::string_view>> kScripts = {
    {AppLanguage::russian, {"\xD0", "\xD1"}},                 // U+0400 to U+047F
    {AppLanguage::arabic, {"\xD8", "\xD9", "\xDA", "\xDB"}},  // U+0600 to U+06FF
    {AppLanguage::urdu, {"\xD8", "\xD9", "\xDA", "\xDB"}},
    {AppLanguage::hindi, {"\xE0\xA4"}},                                        // U+0900 to U+093F
    {AppLanguage::bengali, {"\xE0\xA6"}},                                      // U+0980 to U+09BF
    {AppLanguage::chinese, {"\xE4", "\xE5", "\xE6", "\xE7", "\xE8", "\xE9"}},  // U+4000 to U+9FFF
    {AppLanguage::japanese,
     {"\xE3\x81", "\xE3\x82", "\xE3\x83", "\xE4", "\xE5",  // U+3040 to U+30FF too
      "\xE6", "\xE7", "\xE8", "\xE9"}},
};

std::string_view textOf(AppLanguage language, std::size_t key) { return stringTable(language)[key]; }
std::string_view textOf(AppLanguage language, StringKey key) { return textOf(language, static_cast<std::size_t>(key)); }

std::size_t count(std::string_view text, std::string_view part) {
  std::size_t found = 0;
  for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size())) ++found;
  return found;
}

void forEachText(auto check) {
  for (const AppLanguage language : kAppLanguages) {
    for (std::size_t key = 0; key < kStringKeyCount; ++key) {
      SCOPED_TRACE(std::string(rawValue(language)) + ", key " + std::to_string(key) + ": " +
                   std::string(textOf(language, key)));
      check(language, key, textOf(language, key));
    }
  }
}

TEST(StringTables, AreWellFormedAndKeepThePlaceholders) {
  forEachText([](AppLanguage, std::size_t key, std::string_view text) {
    EXPECT_TRUE(isValidUtf8(text));
    EXPECT_EQ(trimmed(text), text);
    EXPECT_EQ(count(text, "%@"), count(textOf(AppLanguage::english, key), "%@"));
    EXPECT_EQ(count(text, "..."), 0U) << "an ellipsis is one character";
    EXPECT_EQ(count(text, "\""), 0U) << "quotation marks are those of the language";
  });
}

TEST(StringTables, ShareNoTextBetweenTwoLanguages) {
  forEachText([](AppLanguage language, std::size_t key, std::string_view text) {
    if (kSharedOnPurpose.contains({language, static_cast<StringKey>(key)})) return;
    for (const AppLanguage other : kAppLanguages) {
      if (other == language) continue;
      EXPECT_NE(text, textOf(other, key)) << rawValue(other);
    }
  });
}

/// The direction of a whole text follows its first letter or mark of direction.
TEST(StringTables, AreWrittenInTheScriptAndBeginInTheDirectionOfTheirLanguage) {
  constexpr std::string_view kLatinLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  forEachText([&](AppLanguage language, std::size_t, std::string_view text) {
    const auto script = kScripts.find(language);
    if (script == kScripts.end()) return;
    EXPECT_TRUE(std::ranges::any_of(script->second, [&](auto letter) { return text.find(letter) != text.npos; }));
    const std::string_view beginning = text.substr(0, text.find_first_of(kLatinLetters));
    EXPECT_EQ(hasRightToLeftLetter(beginning), isRightToLeft(language));
  });
}

TEST(StringTables, NameThePasteShortcutAndKeepTheFixedEnglishTexts) {
  for (const AppLanguage language : kAppLanguages) {
    EXPECT_EQ(count(textOf(language, StringKey::snippetHint), "Command+V"), 1U) << rawValue(language);
  }
  EXPECT_EQ(textOf(AppLanguage::english, StringKey::snippetHint),
            "Text is copied to the clipboard. Paste it manually with Command+V.");
  EXPECT_EQ(textOf(AppLanguage::english, StringKey::settingsHotkeysNote),
            "Global hotkeys use the system Carbon API. Fn-only or Globe combinations may not register — pick another "
            "shortcut.");
  EXPECT_EQ(textOf(AppLanguage::english, StringKey::importRefused),
            "Couldn't read this file. Please choose a valid settings backup.");
}

}  // namespace
}  // namespace rondora
