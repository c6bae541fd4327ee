#include "model/pie_menu_item.h"

#include <gtest/gtest.h>

#include <map>

#include "doubles/fake_devices.h"

namespace rondora {
namespace {

TEST(RandomUnassignedSymbolTest, PrefersUnusedSymbolsAndIsUniform) {
  SeededRandom random;
  std::set<std::string, std::less<>> avoided(PieMenuItem::kUnassignedSymbols.begin(),
                                             PieMenuItem::kUnassignedSymbols.end());
  avoided.erase("tram.fill");
  avoided.insert("TRAM.FILL");
  EXPECT_EQ(PieMenuItem::randomUnassignedSymbol(avoided, random), "tram.fill");
  avoided.insert("tram.fill");
  std::map<std::string, int> counts;
  for (int i = 0; i < 49 * 100; ++i) ++counts[PieMenuItem::randomUnassignedSymbol(avoided, random)];
  ASSERT_EQ(counts.size(), 49U);
  for (const auto& [symbol, count] : counts) EXPECT_NEAR(count, 100, 60) << symbol;
}

}  // namespace
}  // namespace rondora
