#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "icons/catalogue/icon_catalogue.h"
#include "icons/icon_reference.h"
#include "ui/qt/painting/symbol_table.h"
#include "ui/qt/settings/embedded_icon_names.h"

namespace rondora {
namespace {

std::vector<std::string> firstFound(AppLanguage language, std::string_view query) {
  const IconCatalogue catalogue(embeddedIconNames, language);
  std::vector<std::string> icons;
  for (const std::size_t place : catalogue.search(WordQuery(query))) {
    if (icons.size() < 3) icons.emplace_back(catalogue.icon(place));
  }
  return icons;
}

TEST(IconNamesTest, EveryLanguageNamesEverySymbolAndEmoji) {
  for (const AppLanguage language : kAppLanguages) {
    SCOPED_TRACE(rawValue(language));
    const IconCatalogue catalogue(embeddedIconNames, language);
    ASSERT_EQ(catalogue.sections().size(), 9U);
    for (const SymbolEntry& symbol : symbolTable()) EXPECT_LT(catalogue.find(symbol.name), symbolTable().size());
    for (const IconCatalogue::Section& section : catalogue.sections()) {
      const bool areSymbols = section.key == IconCatalogue::kSymbolsKey;
      EXPECT_EQ(section.end == symbolTable().size(), areSymbols);
      EXPECT_FALSE(section.title.empty());
      for (std::size_t place = section.begin; place < section.end; ++place) {
        const std::string icon(catalogue.icon(place));
        EXPECT_EQ(IconReference::parse(icon), (IconReference{areSymbols ? IconKind::symbol : IconKind::emoji, icon}));
        EXPECT_FALSE(catalogue.name(place).empty()) << icon;
      }
    }
  }
}

TEST(IconNamesTest, SearchesInTheLanguageAndInEnglish) {
  using Icons = std::vector<std::string>;
  EXPECT_EQ(firstFound(AppLanguage::german, "schildkrote"), (Icons{"tortoise.fill", "🐢"}));
  EXPECT_EQ(firstFound(AppLanguage::russian, "кошка"), (Icons{"cat.fill", "🐈", "🐈‍⬛"}));
  EXPECT_EQ(firstFound(AppLanguage::japanese, "turtle"), (Icons{"tortoise.fill", "🐢"}));
  EXPECT_EQ(firstFound(AppLanguage::arabic, "تصفح no such"), Icons());
  EXPECT_EQ(firstFound(AppLanguage::french, "drapeau norvege"), Icons{"🇳🇴"});
}

}  // namespace
}  // namespace rondora
