#include "model/pie_configuration.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "model/first_run_items.h"
#include "model/palette.h"

namespace rondora {
namespace {

constexpr std::int64_t kSpaceKeyCode = 49;
constexpr std::string_view kMainMenuName = "Main";

PieMenuItem firstRunItem(std::size_t sector, RandomSource& random) {
  PieMenuItem item;
  item.id = random.uuid();
  item.title = kFirstRunItems[sector].title;
  item.icon = kFirstRunItems[sector].icon;
  item.action = LaunchApp{std::string(kFirstRunItems[sector].bundleIdentifier)};
  item.color = kItemColorPalette[sector];
  item.sectorIndex = static_cast<std::int64_t>(sector);
  return item;
}

PieMenu mainMenu(RandomSource& random) {
  PieMenu menu;
  menu.id = random.uuid();
  menu.name = kMainMenuName;
  menu.hotkey = {kSpaceKeyCode, carbon::kControl | carbon::kOption};
  for (std::size_t sector = 0; sector < kFirstRunItems.size(); ++sector) {
    menu.items.push_back(firstRunItem(sector, random));
  }
  return menu;
}

}  // namespace

PieConfiguration PieConfiguration::defaultConfig(RandomSource& random) {
  PieConfiguration configuration;
  configuration.menus.push_back(mainMenu(random));
  configuration.menus.push_back(templateRunningAppsMenu(random));
  configuration.menus.push_back(templateAppCommandsMenu(random));
  return configuration;
}

PieMenu PieConfiguration::templateRunningAppsMenu(RandomSource& random) {
  PieMenu menu;
  menu.id = random.uuid();
  menu.name = "Active apps";
  menu.kind = PieMenuKind::runningApps;
  menu.hotkey = {kTabKeyCode, carbon::kCommand};
  return menu;
}

PieMenu PieConfiguration::templateLooks(PieMenuKind kind) {
  PieMenu menu;
  menu.kind = kind;
  if (kind == PieMenuKind::appCommands) {
    menu.rotationDegrees = -22.5;
    menu.pawDecorationEnabled = false;
  }
  return menu;
}

PieMenu PieConfiguration::templateAppCommandsMenu(RandomSource& random) {
  PieMenu menu = templateLooks(PieMenuKind::appCommands);
  menu.id = random.uuid();
  menu.name = "App commands";
  menu.appCommandsDefaultEntries = PieMenu::resolvedAppCommandsDefaultEntries({}, menu.kind, random);
  return menu;
}

const PieMenu* PieConfiguration::menu(const Uuid& id) const {
  const auto found = std::find_if(menus.begin(), menus.end(), [&id](const PieMenu& menu) { return menu.id == id; });
  return found == menus.end() ? nullptr : &*found;
}

bool PieConfiguration::hasItem(const MenuAction& action) const {
  const auto has = [&](const PieMenuItem& item) { return item.action == action; };
  return std::any_of(menus.begin(), menus.end(),
                     [&](const PieMenu& menu) { return std::any_of(menu.items.begin(), menu.items.end(), has); });
}

std::map<std::int64_t, std::size_t> PieConfiguration::trackpadGestureTargets() const {
  std::map<std::int64_t, std::size_t> targets;
  for (std::size_t i = 0; i < menus.size(); ++i) {
    if (isFingerCount(menus[i].trackpadFingerCount)) targets[menus[i].trackpadFingerCount] = i;
  }
  std::erase_if(targets, [this](const auto& target) { return !menus[target.second].isEnabled(); });
  return targets;
}

void PieConfiguration::assignTrackpadFingerCount(std::int64_t count, const Uuid& menuId) {
  const auto target = std::find_if(menus.begin(), menus.end(), [&](const PieMenu& menu) { return menu.id == menuId; });
  if (target == menus.end()) return;
  if (!isFingerCount(count)) {
    target->trackpadFingerCount = 0;
    return;
  }
  for (PieMenu& menu : menus) {
    if (menu.trackpadFingerCount == count) menu.trackpadFingerCount = 0;
  }
  target->trackpadFingerCount = count;
}

const AppSubMenu* PieConfiguration::appSubMenu(std::string_view bundleIdentifier) const {
  const auto found = std::find_if(appSubMenus.begin(), appSubMenus.end(),
                                  [&](const AppSubMenu& set) { return set.bundleIdentifier == bundleIdentifier; });
  return found == appSubMenus.end() ? nullptr : &*found;
}

std::vector<AppSubMenuEntry> PieConfiguration::commandEntries(std::string_view bundleIdentifier,
                                                              RandomSource& random) const {
  const AppSubMenu* set = appSubMenu(bundleIdentifier);
  return set ? set->entries : defaultAppCommands(random);
}

std::vector<AppSubMenuEntry> PieConfiguration::defaultAppCommands(RandomSource& random) const {
  const auto menu = std::find_if(menus.begin(), menus.end(),
                                 [](const PieMenu& each) { return each.kind == PieMenuKind::appCommands; });
  std::vector<AppSubMenuEntry> entries;
  if (menu != menus.end()) entries = menu->appCommandsDefaultEntries;
  return PieMenu::resolvedAppCommandsDefaultEntries(std::move(entries), PieMenuKind::appCommands, random);
}

}  // namespace rondora
