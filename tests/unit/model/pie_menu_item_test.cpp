#include "model/pie_menu_item.h"

#include <gmock/gmock.h>

#include <map>

#include "doubles/fake_devices.h"

namespace rondora {
namespace {

using Symbols = std::set<std::string, std::less<>>;

Symbols allSymbols() { return {PieMenuItem::kUnassignedSymbols.begin(), PieMenuItem::kUnassignedSymbols.end()}; }

TEST(CustomShortcutTest, KeepsOneAsciiLetterOrDigitInUpperCase) {
  const std::pair<std::optional<std::string>, std::optional<std::string>> cases[] = {{std::nullopt, std::nullopt},
                                                                                     {"q", "Q"},
                                                                                     {" q\n", "Q"},
                                                                                     {"\u00A07\u3000", "7"},
                                                                                     {"Q", "Q"},
                                                                                     {"", std::nullopt},
                                                                                     {" ", std::nullopt},
                                                                                     {"ab", std::nullopt},
                                                                                     {"a b", std::nullopt},
                                                                                     {"é", std::nullopt},
                                                                                     {"e\u0301", std::nullopt},
                                                                                     {"ß", std::nullopt},
                                                                                     {"ж", std::nullopt},
                                                                                     {"٣", std::nullopt},
                                                                                     {"-", std::nullopt},
                                                                                     {"\xFF", std::nullopt},
                                                                                     {"ſ", "S"}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(PieMenuItem::normalizedCustomShortcut(text), expected) << text.value_or("none");
  }
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
