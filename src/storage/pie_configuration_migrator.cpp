#include "storage/pie_configuration_migrator.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <variant>

#include "model/palette.h"

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;

constexpr std::string_view kLegacyUnassignedIcon = "cat.fill";
constexpr std::int64_t kVersionWithOwnUnassignedIcons = 2;
constexpr std::int64_t kVersionWithPresentDefaultSet = 3;

const std::set<Kind>& formerDefaultSet() {
  static const std::set<Kind> kinds = {Kind::toggleFullScreen, Kind::tileRight, Kind::tileBottom,
                                       Kind::quitApp,          Kind::tileLeft,  Kind::tileTop};
  return kinds;
}

std::set<Kind> kindsOf(const std::vector<AppSubMenuEntry>& entries) {
  std::set<Kind> kinds;
  for (const AppSubMenuEntry& entry : entries) kinds.insert(entry.kind);
  return kinds;
}

void giveEmptyItemsOwnIcons(PieMenu& menu, RandomSource& random) {
  std::set<std::string, std::less<>> used;
  for (const PieMenuItem& item : menu.items) used.insert(item.icon);
  for (PieMenuItem& item : menu.items) {
    if (!std::holds_alternative<Unassigned>(item.action) || item.icon != kLegacyUnassignedIcon) continue;
    item.icon = PieMenuItem::randomUnassignedSymbol(used, random);
    used.insert(item.icon);
  }
}

}  // namespace

void PieConfigurationMigrator::replaceLegacyUnassignedIcons(std::vector<PieMenu>& menus) {
  for (PieMenu& menu : menus) giveEmptyItemsOwnIcons(menu, random_);
}

void PieConfigurationMigrator::upgradeAppCommandsDefaultSet(std::vector<PieMenu>& menus) {
  for (PieMenu& menu : menus) {
    if (menu.kind != PieMenuKind::appCommands) continue;
    if (kindsOf(menu.appCommandsDefaultEntries) != formerDefaultSet()) continue;
    menu.appCommandsDefaultEntries = AppSubMenuEntry::automaticBuiltIns(random_);
  }
}

void PieConfigurationMigrator::backfillGlobalSidebarIconColors(std::vector<PieMenu>& menus) {
  std::size_t position = 0;
  for (PieMenu& menu : menus) {
    if (menu.kind != PieMenuKind::standard) continue;
    if (!menu.globalSidebarIconColorHex) {
      menu.globalSidebarIconColorHex = kItemColorPalette[position % kItemColorPalette.size()];
    }
    ++position;
  }
}

void PieConfigurationMigrator::bringUpToDate(PieConfiguration& configuration) {
  if (configuration.schemaVersion < kVersionWithOwnUnassignedIcons) replaceLegacyUnassignedIcons(configuration.menus);
  if (configuration.schemaVersion < kVersionWithPresentDefaultSet) upgradeAppCommandsDefaultSet(configuration.menus);
  configuration.schemaVersion = kCurrentSchemaVersion;
  backfillGlobalSidebarIconColors(configuration.menus);
}

}  // namespace rondora
