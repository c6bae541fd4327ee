#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "base/unicode.h"
#include "localization/string_table.h"

namespace rondora {
namespace {

/// Texts that are the same in two languages on purpose; any other repetition is a missing translation.
const std::set<std::pair<AppLanguage, StringKey>> kSharedOnPurpose = {
    {AppLanguage::spanish, StringKey::settingsLanguage},  // "Idioma:" in both
    {AppLanguage::portuguese, StringKey::settingsLanguage},
    {AppLanguage::spanish, StringKey::settingsCopy},  // "Copiar" in both
    {AppLanguage::portuguese, StringKey::settingsCopy},
    {AppLanguage::spanish, StringKey::hotkeyCancel},  // "Cancelar" in both
    {AppLanguage::portuguese, StringKey::hotkeyCancel},
    {AppLanguage::spanish, StringKey::settingsDuplicate},  // "Duplicar" in both
    {AppLanguage::portuguese, StringKey::settingsDuplicate},
    {AppLanguage::spanish, StringKey::itemTitle},  // "Título:" in both
    {AppLanguage::portuguese, StringKey::itemTitle},
    {AppLanguage::spanish, StringKey::findingRestore},  // "Restaurar" in both
    {AppLanguage::portuguese, StringKey::findingRestore},
    {AppLanguage::spanish, StringKey::findingImport},  // "Importar" in both
    {AppLanguage::portuguese, StringKey::findingImport},
    {AppLanguage::spanish, StringKey::backupExport},  // "Exportar" in both
    {AppLanguage::portuguese, StringKey::backupExport},
    {AppLanguage::spanish, StringKey::backupApply},  // "Aplicar" in both
    {AppLanguage::portuguese, StringKey::backupApply},
    {AppLanguage::spanish, StringKey::kindTextEditor},  // "Editor de texto" in both
    {AppLanguage::portuguese, StringKey::kindTextEditor},
    {AppLanguage::spanish, StringKey::colorBlue},  // "Azul" in both
    {AppLanguage::portuguese, StringKey::colorBlue},
    {AppLanguage::spanish, StringKey::colorGreen},  // "Verde" in both
    {AppLanguage::portuguese, StringKey::colorGreen},
    {AppLanguage::french, StringKey::colorGray},  // "Gris" in both
    {AppLanguage::spanish, StringKey::colorGray},
    {AppLanguage::german, StringKey::colorPink},  // "Rosa" in all three
    {AppLanguage::spanish, StringKey::colorPink},
    {AppLanguage::portuguese, StringKey::colorPink},
    {AppLanguage::english, StringKey::lookRing},  // "Ring" in both
    {AppLanguage::german, StringKey::lookRing},
    {AppLanguage::english, StringKey::colorOrange},  // "Orange" in all three
    {AppLanguage::german, StringKey::colorOrange},
    {AppLanguage::french, StringKey::colorOrange},
    {AppLanguage::spanish, StringKey::iconPickerSymbols},  // "Símbolos" in both
    {AppLanguage::portuguese, StringKey::iconPickerSymbols},
    {AppLanguage::spanish, StringKey::spokenItem},  // "de" in both
    {AppLanguage::portuguese, StringKey::spokenItem},
    {AppLanguage::spanish, StringKey::spokenItemKey},  // "tecla" in both
    {AppLanguage::portuguese, StringKey::spokenItemKey},
};

std::string_view textOf(AppLanguage language, std::size_t key) { return stringTable(language)[key]; }

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

TEST(StringTables, AreWellFormedAndKeepFixedParts) {
  forEachText([](AppLanguage, std::size_t key, std::string_view text) {
    EXPECT_TRUE(isValidUtf8(text));
    EXPECT_EQ(trimmed(text), text);
    for (const char* fixed : {"%@", "Command+V"}) {
      EXPECT_EQ(count(text, fixed), count(textOf(AppLanguage::english, key), fixed)) << fixed;
    }
    EXPECT_EQ(count(text, "..."), 0U) << "use the ellipsis character";
    EXPECT_EQ(count(text, "\""), 0U) << "use the language's quotation marks";
  });
}

TEST(StringTables, ShareNoTextBetweenTwoLanguages) {
  forEachText([](AppLanguage language, std::size_t key, std::string_view text) {
    const auto stringKey = static_cast<StringKey>(key);
    // One word in six languages.
    if (stringKey == StringKey::kindTerminal || kSharedOnPurpose.contains({language, stringKey})) return;
    for (const AppLanguage other : kAppLanguages) {
      if (other == language) continue;
      EXPECT_NE(text, textOf(other, key)) << rawValue(other);
    }
  });
}

/// The base direction of a text follows its first letter or direction mark.
TEST(StringTables, BeginInTheDirectionOfTheirLanguage) {
  constexpr std::string_view kLatinLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  forEachText([&](AppLanguage language, std::size_t, std::string_view text) {
    const std::string_view beginning = text.substr(0, text.find_first_of(kLatinLetters));
    EXPECT_EQ(hasRightToLeftLetter(beginning), isRightToLeft(language));
  });
}

}  // namespace
}  // namespace rondora
