#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "base/unicode.h"
#include "localization/string_table.h"

namespace rondora {
namespace {

std::string_view textOf(AppLanguage language, std::size_t key) { return stringTable(language)[key]; }
std::string_view textOf(AppLanguage language, StringKey key) { return textOf(language, static_cast<std::size_t>(key)); }

std::size_t placeholderCount(std::string_view text) {
  std::size_t count = 0;
  for (auto at = text.find("%@"); at != std::string_view::npos; at = text.find("%@", at + 2)) ++count;
  return count;
}

std::string where(AppLanguage language, std::size_t key) {
  return "language " + std::to_string(static_cast<int>(language)) + ", key " + std::to_string(key);
}

TEST(StringTables, AreWellFormedAndKeepThePlaceholders) {
  for (const AppLanguage language : kAppLanguages) {
    for (std::size_t key = 0; key < kStringKeyCount; ++key) {
      SCOPED_TRACE(where(language, key));
      const auto text = textOf(language, key);
      EXPECT_FALSE(text.empty());
      EXPECT_TRUE(isValidUtf8(text));
      EXPECT_EQ(trimmed(text), text);
      EXPECT_EQ(placeholderCount(text), placeholderCount(textOf(AppLanguage::english, key)));
    }
  }
}

TEST(StringTables, ShareNoTextBetweenTwoLanguages) {
  for (const AppLanguage language : kAppLanguages) {
    for (const AppLanguage other : kAppLanguages) {
      if (language >= other) continue;
      for (std::size_t key = 0; key < kStringKeyCount; ++key) {
        EXPECT_NE(textOf(language, key), textOf(other, key)) << where(language, key) << " and " << where(other, key);
      }
    }
  }
}

TEST(StringTables, SpeakTheScriptOfTheirLanguage) {
  const auto greetsIn = [](AppLanguage language, std::string_view word) {
    return textOf(language, StringKey::settings).find(word) != std::string_view::npos;
  };
  EXPECT_TRUE(greetsIn(AppLanguage::russian, "Настройки"));
  EXPECT_TRUE(greetsIn(AppLanguage::chinese, "设置"));
  EXPECT_TRUE(greetsIn(AppLanguage::hindi, "सेटिंग्स"));
  EXPECT_TRUE(greetsIn(AppLanguage::spanish, "Ajustes"));
  EXPECT_TRUE(greetsIn(AppLanguage::arabic, "الإعدادات"));
  EXPECT_TRUE(greetsIn(AppLanguage::french, "Réglages"));
  EXPECT_TRUE(greetsIn(AppLanguage::bengali, "সেটিংস"));
  EXPECT_TRUE(greetsIn(AppLanguage::portuguese, "Configurações"));
  EXPECT_TRUE(greetsIn(AppLanguage::urdu, "ترتیبات"));
  EXPECT_TRUE(greetsIn(AppLanguage::indonesian, "Pengaturan"));
  EXPECT_TRUE(greetsIn(AppLanguage::german, "Einstellungen"));
  EXPECT_TRUE(greetsIn(AppLanguage::japanese, "設定"));
}

TEST(StringTables, NamePasteShortcutAndPlaceholdersWhereTheInterfaceLooksForThem) {
  for (const AppLanguage language : kAppLanguages) {
    SCOPED_TRACE(static_cast<int>(language));
    EXPECT_NE(textOf(language, StringKey::snippetHint).find("Command+V"), std::string_view::npos);
    EXPECT_EQ(placeholderCount(textOf(language, StringKey::onboardingHowToOpen)), 1U);
    EXPECT_EQ(placeholderCount(textOf(language, StringKey::onboardingConfigurationFile)), 1U);
    EXPECT_EQ(placeholderCount(textOf(language, StringKey::settingsHotkeyRefused)), 1U);
  }
}

TEST(StringTables, KeepTheFixedEnglishTexts) {
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
