#include "storage/pie_configuration_migrator.h"

#include <gmock/gmock.h>

#include "doubles/fake_devices.h"

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;
using testing::ElementsAre;
using testing::Optional;
using testing::SizeIs;

PieMenuItem item(std::string icon, MenuAction action = Unassigned{}) {
  PieMenuItem result;
  result.icon = std::move(icon);
  result.action = std::move(action);
  return result;
}

PieMenu menuOfKind(PieMenuKind kind) {
  PieMenu menu;
  menu.kind = kind;
  return menu;
}

class PieConfigurationMigratorTest : public testing::Test {
 protected:
  SeededRandom random;
  PieConfigurationMigrator migrator{random};
  std::vector<PieMenu> menus;
};

TEST_F(PieConfigurationMigratorTest, EmptyItemsOfAMenuGetDifferentSymbolsThatItDoesNotUse) {
  menus.resize(1);
  for (int i = 0; i < 8; ++i) menus[0].items.push_back(item("cat.fill"));
  // All but eight symbols are in use already, by items before and after.
  for (std::size_t i = 8; i < PieMenuItem::kUnassignedSymbols.size(); ++i) {
    menus[0].items.push_back(item(std::string(PieMenuItem::kUnassignedSymbols[i]), Snippet{"x"}));
  }
  migrator.replaceLegacyUnassignedIcons(menus);
  std::set<std::string> icons;
  for (const PieMenuItem& each : menus[0].items) icons.insert(each.icon);
  EXPECT_EQ(icons.size(), menus[0].items.size());
  EXPECT_FALSE(icons.contains("cat.fill"));
}

TEST_F(PieConfigurationMigratorTest, ItemsWithAnActionOrAnotherIconKeepTheirs) {
  menus.resize(1);
  menus[0].items = {item("cat.fill", Snippet{"x"}), item("Cat.fill"), item("")};
  const auto before = menus;
  migrator.replaceLegacyUnassignedIcons(menus);
  EXPECT_EQ(menus, before);
}

TEST_F(PieConfigurationMigratorTest, OnlyTheFormerDefaultSetIsUpgraded) {
  const auto entriesOf = [](std::initializer_list<Kind> kinds) {
    std::vector<AppSubMenuEntry> entries;
    for (const Kind kind : kinds) entries.emplace_back().kind = kind;
    return entries;
  };
  menus.assign(4, menuOfKind(PieMenuKind::appCommands));
  menus[0].appCommandsDefaultEntries = entriesOf({Kind::tileTop, Kind::tileTop, Kind::toggleFullScreen, Kind::quitApp,
                                                  Kind::tileRight, Kind::tileBottom, Kind::tileLeft});
  menus[1].appCommandsDefaultEntries = entriesOf({Kind::tileTop, Kind::tileRight, Kind::tileBottom, Kind::tileLeft});
  menus[2].appCommandsDefaultEntries = entriesOf({Kind::tileTop, Kind::toggleFullScreen, Kind::quitApp, Kind::tileRight,
                                                  Kind::tileBottom, Kind::tileLeft, Kind::hideApp});
  menus[3] = menus[0];
  menus[3].kind = PieMenuKind::standard;
  migrator.upgradeAppCommandsDefaultSet(menus);
  EXPECT_THAT(menus[0].appCommandsDefaultEntries, SizeIs(8));
  EXPECT_THAT(menus[1].appCommandsDefaultEntries, SizeIs(4));
  EXPECT_THAT(menus[2].appCommandsDefaultEntries, SizeIs(7));
  EXPECT_THAT(menus[3].appCommandsDefaultEntries, SizeIs(7));
}

TEST_F(PieConfigurationMigratorTest, SidebarColorsGoByThePlaceAmongStandardMenus) {
  menus = {menuOfKind(PieMenuKind::standard), menuOfKind(PieMenuKind::runningApps), menuOfKind(PieMenuKind::standard)};
  menus.resize(10);
  menus[3].globalSidebarIconColorHex = "#123456";
  PieConfigurationMigrator::backfillGlobalSidebarIconColors(menus);
  std::vector<std::string> colors;
  for (const PieMenu& menu : menus) colors.push_back(menu.globalSidebarIconColorHex.value_or("none"));
  EXPECT_THAT(colors, ElementsAre("#007AFF", "none", "#28CD41", "#123456", "#8E8E93", "#FF2D55", "#FFCC00", "#AF52DE",
                                  "#FF9500", "#007AFF"));
}

TEST_F(PieConfigurationMigratorTest, ASecondRunChangesNothing) {
  menus = {menuOfKind(PieMenuKind::standard), menuOfKind(PieMenuKind::appCommands)};
  menus[0].items = {item("cat.fill"), item("cat.fill")};
  PieConfiguration document;
  document.schemaVersion = -3;
  document.menus = menus;
  migrator.bringUpToDate(document);
  const PieConfiguration once = document;
  migrator.replaceLegacyUnassignedIcons(document.menus);
  migrator.upgradeAppCommandsDefaultSet(document.menus);
  migrator.bringUpToDate(document);
  EXPECT_EQ(document, once);
  EXPECT_EQ(document.schemaVersion, 3);
}

}  // namespace
}  // namespace rondora
