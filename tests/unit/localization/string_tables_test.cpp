#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
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

struct Letters {
  char32_t first = 0;
  char32_t last = 0;
};

/// The letters that a text in the language cannot do without; none for those that are written like English.
std::vector<Letters> scriptOf(AppLanguage language) {
  constexpr Letters kCyrillic{0x400, 0x4FF}, kArabic{0x620, 0x6D3}, kDevanagari{0x904, 0x939}, kBengali{0x985, 0x9B9},
      kHan{0x4E00, 0x9FFF}, kKana{0x3041, 0x30FA};
  switch (language) {
    case AppLanguage::russian:
      return {kCyrillic};
    case AppLanguage::arabic:
    case AppLanguage::urdu:
      return {kArabic};
    case AppLanguage::hindi:
      return {kDevanagari};
    case AppLanguage::bengali:
      return {kBengali};
    case AppLanguage::chinese:
      return {kHan};
    case AppLanguage::japanese:
      return {kKana, kHan};
    default:
      return {};
  }
}

/// Of well-formed UTF-8.
std::u32string scalars(std::string_view utf8) {
  std::u32string result;
  for (const char byte : utf8) {
    const auto bits = static_cast<unsigned char>(byte);
    if (const int length = std::countl_one(bits); length == 1) {
      result.back() = result.back() << 6 | (bits & 0x3FU);
    } else {
      result += bits & (0xFFU >> (length + 1));
    }
  }
  return result;
}

bool isIn(const std::vector<Letters>& script, char32_t scalar) {
  return std::ranges::any_of(script, [scalar](Letters range) { return scalar >= range.first && scalar <= range.last; });
}

bool isLatin(char32_t scalar) { return isIn({{U'A', U'Z'}, {U'a', U'z'}, {0xC0, 0x24F}}, scalar); }

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

TEST(StringTables, AreWrittenInTheScriptOfTheirLanguage) {
  forEachText([](AppLanguage language, std::size_t key, std::string_view text) {
    const auto script = scriptOf(language);
    if (script.empty() || kSharedOnPurpose.contains({language, static_cast<StringKey>(key)})) return;
    EXPECT_TRUE(std::ranges::any_of(scalars(text), [&](char32_t scalar) { return isIn(script, scalar); }));
  });
}

/// The direction of a whole text follows its first letter or mark of direction.
TEST(StringTables, BeginInTheDirectionOfTheirLanguage) {
  constexpr char32_t kRightToLeftMark = 0x200F;
  forEachText([](AppLanguage language, std::size_t, std::string_view text) {
    if (!isRightToLeft(language)) return;
    const std::u32string all = scalars(text);
    const auto first = std::ranges::find_if(all, [&](char32_t scalar) {
      return scalar == kRightToLeftMark || isLatin(scalar) || isIn(scriptOf(language), scalar);
    });
    ASSERT_NE(first, all.end());
    EXPECT_FALSE(isLatin(*first));
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
