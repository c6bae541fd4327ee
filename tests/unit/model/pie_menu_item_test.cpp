#include "model/pie_menu_item.h"

#include <gmock/gmock.h>

#include <map>

#include "doubles/fake_devices.h"

namespace rondora {
namespace {

using Symbols = std::set<std::string, std::less<>>;

Symbols allSymbols() { return {PieMenuItem::kUnassignedSymbols.begin(), PieMenuItem::kUnassignedSymbols.end()}; }

TEST(CustomShortcutTest, KeepsOneAsciiLetterOrDigitInUpperCase) {
  const std::pair<const char*, const char*> kept[] = {
      {"q", "Q"}, {" q\n", "Q"}, {"\u00A07\u3000", "7"}, {"Q", "Q"}, {"ſ", "S"}};
  for (const auto& [text, label] : kept) EXPECT_EQ(PieMenuItem::normalizedCustomShortcut(text), label) << text;
  for (const char* text : {"", " ", "ab", "a b", "é", "e\u0301", "ß", "ж", "٣", "-", "\xFF"}) {
    EXPECT_EQ(PieMenuItem::normalizedCustomShortcut(text), std::nullopt) << text;
  }
  EXPECT_EQ(PieMenuItem::normalizedCustomShortcut(std::nullopt), std::nullopt);
}

TEST(RandomUnassignedSymbolTest, TakesTheOnlyOneThatIsLeft) {
  SeededRandom random;
  Symbols avoided = allSymbols();
  ASSERT_EQ(avoided.size(), 49U);
  avoided.erase("tram.fill");
  avoided.insert("TRAM.FILL");
  EXPECT_EQ(PieMenuItem::randomUnassignedSymbol(avoided, random), "tram.fill");
}

TEST(RandomUnassignedSymbolTest, UsesAllAgainWhenNoneIsLeftAndEachAsOften) {
  SeededRandom random;
  std::map<std::string, int> counts;
  constexpr int kDraws = 49 * 100;
  for (int i = 0; i < kDraws; ++i) ++counts[PieMenuItem::randomUnassignedSymbol(allSymbols(), random)];
  ASSERT_EQ(counts.size(), 49U);
  for (const auto& [symbol, count] : counts) EXPECT_NEAR(count, 100, 60) << symbol;
}

}  // namespace
}  // namespace rondora
