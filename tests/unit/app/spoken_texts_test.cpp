#include "app/spoken_texts.h"

#include <gtest/gtest.h>

namespace rondora {
namespace {

TEST(SpokenTexts, TellTitlePlaceKeyAndWhyAnItemIsDimmed) {
  const SpokenItem plain{"Terminal", 2, 6, "1"};
  const SpokenItem dimmed{"Gimp", 40, 40, std::nullopt, false};
  const SpokenItem command{"Copy", 1, 3, "0", false, "Not available now"};
  const struct {
    AppLanguage language;
    const SpokenItem& item;
    const char* sentence;
  } kCases[] = {
      {AppLanguage::english, plain, "Terminal, 2 of 6, key 1"},
      {AppLanguage::english, dimmed, "Gimp, 40 of 40. “Gimp” is not installed here."},
      {AppLanguage::english, command, "Copy, 1 of 3, key 0. Not available now"},
      {AppLanguage::german, plain, "Terminal, 2 von 6, Taste 1"},
      {AppLanguage::japanese, plain, "Terminal、2番目、全6項目、キー 1"},
      {AppLanguage::arabic, plain, "Terminal، 2 من 6، المفتاح 1"},
  };
  for (const auto& [language, item, sentence] : kCases) {
    EXPECT_EQ(spokenItem(LocalizationStore(language), item), sentence);
  }
}

}  // namespace
}  // namespace rondora
