#include "storage/pie_configuration_migrator.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "doubles/fake_devices.h"

// The documents in fixtures/config show which items, menus and documents are migrated.

namespace rondora {
namespace {

TEST(PieConfigurationMigratorTest, EmptyItemsGetUnusedSymbols) {
  SeededRandom random;
  std::vector<PieMenu> menus(1);
  menus[0].items.resize(PieMenuItem::kUnassignedSymbols.size());
  for (std::size_t i = 0; i < menus[0].items.size(); ++i) {
    // All but seven symbols are in use already, by items before and after.
    const bool isFree = i % 7 == 3;
    menus[0].items[i].icon = isFree ? "cat.fill" : PieMenuItem::kUnassignedSymbols[i];
    if (!isFree) menus[0].items[i].action = Snippet{"x"};
  }
  PieConfigurationMigrator(random).replaceLegacyUnassignedIcons(menus);
  std::set<std::string> icons;
  for (const PieMenuItem& each : menus[0].items) icons.insert(each.icon);
  EXPECT_EQ(icons.size(), menus[0].items.size());
  EXPECT_FALSE(icons.contains("cat.fill"));
}

}  // namespace
}  // namespace rondora
