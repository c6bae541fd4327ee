#include "settings/colors/color_text.h"

#include <gtest/gtest.h>

namespace rondora {
namespace {

TEST(ColorText, TakesEveryFormThatTheDocumentReads) {
  EXPECT_EQ(colorFromText(" 00ff7f "), "#00FF7F");
  EXPECT_EQ(colorFromText("#00FF7F"), "#00FF7F");
  for (const char* none : {"", "#", "#00FF7", "#00FF7G", "00FF7F0", "green"})
    EXPECT_EQ(colorFromText(none), std::nullopt);
}

TEST(ColorText, NamesTheColoursOfThePalette) {
  const LocalizationStore localization(AppLanguage::german);
  EXPECT_EQ(colorName("#007aff", localization), "Blau");
  EXPECT_EQ(colorName("#ff9500", localization), "Orange");
  EXPECT_EQ(colorName("#010203", localization), "#010203");
}

}  // namespace
}  // namespace rondora
