#include "model/pie_menu.h"

#include <gmock/gmock.h>

#include "doubles/fake_devices.h"

namespace rondora {
namespace {

using testing::ElementsAre;

TEST(PieMenuTest, TheHubLeavesRoomForTheRing) {
  struct Row {
    double stored, menuRadius, clamped;
  };
  for (const Row& row : {Row{70, 30, 12}, Row{76, 150, 76}, Row{200, 150, 128}, Row{-3, 150, 12}, Row{50, -1e9, 12}}) {
    EXPECT_EQ(PieMenu::clampedInnerRadius(row.stored, row.menuRadius), row.clamped) << row.stored;
  }
}

TEST(PieMenuTest, ExcludedApplicationsAreComparedWithoutRegardToCase) {
  EXPECT_THAT(PieMenu::deduplicatedRunningAppsExcludedBundleIds({"com.A", "com.a", "com.b", "COM.B", "é", "É"}),
              ElementsAre("com.A", "com.b", "é"));
}

TEST(PieMenuTest, OnlySpecialMenusCanBeSwitchedOff) {
  PieMenu menu;
  menu.hotkey = {49, 0};
  menu.runningAppsMenuEnabled = false;
  EXPECT_TRUE(menu.hasLiveHotkey());
  menu.kind = PieMenuKind::appCommands;
  EXPECT_FALSE(menu.hasLiveHotkey());
  menu.runningAppsMenuEnabled = true;
  EXPECT_TRUE(menu.hasLiveHotkey());
  menu.hotkey.keyCode = -1;
  EXPECT_FALSE(menu.hasLiveHotkey());
}

/// Every field differs from the default.
PieMenu unusualMenu(RandomSource& random) {
  PieMenu menu;
  menu.id = random.uuid();
  menu.name = "Source";
  menu.hotkey = {1, 2};
  menu.items.resize(3);
  menu.kind = PieMenuKind::appCommands;
  menu.runningAppsExcludedBundleIds = {"a"};
  menu.runningAppsMenuEnabled = false;
  menu.trackpadFingerCount = 4;
  menu.menuRadius = 90;
  menu.innerRadius = 80;
  menu.iconDistance = 0.6;
  menu.iconSize = 30;
  menu.appearanceScale = 1.5;
  menu.rotationDegrees = 10;
  menu.liquidGlass = {LiquidGlassVariant::clear, 0.5};
  menu.animationDuration = 0.4;
  menu.pawDecorationEnabled = false;
  menu.pawSizeScale = 0.4;
  menu.pawRadialInset = 0.1;
  menu.centerCatScale = 1;
  menu.centerAppIconScale = 0.6;
  menu.appCommandsDefaultEntries = AppSubMenuEntry::automaticBuiltIns(random);
  menu.shortcutDigitSizeScale = 0.3;
  menu.shortcutDigitInsetLeftScale = 0.4;
  menu.shortcutDigitInsetRightScale = 0.5;
  menu.shortcutDigitOpacity = 0.9;
  menu.shortcutDigitColorHex = "#000000";
  menu.globalSidebarIconColorHex = "#111111";
  return menu;
}

TEST(PieMenuTest, SharedLooksLeaveTheMenuItself) {
  SeededRandom random;
  const PieMenu source = unusualMenu(random);
  PieMenu expected = source;
  PieMenu target;
  expected.id = target.id;
  expected.name = target.name;
  expected.hotkey = target.hotkey;
  expected.items = target.items;
  expected.kind = target.kind;
  expected.runningAppsExcludedBundleIds = target.runningAppsExcludedBundleIds;
  expected.runningAppsMenuEnabled = target.runningAppsMenuEnabled;
  expected.trackpadFingerCount = target.trackpadFingerCount;
  expected.centerAppIconScale = target.centerAppIconScale;
  expected.appCommandsDefaultEntries = target.appCommandsDefaultEntries;
  expected.globalSidebarIconColorHex = target.globalSidebarIconColorHex;
  expected.innerRadius = 68;
  target.applySharedVisualSettings(source);
  EXPECT_EQ(target, expected);
}

}  // namespace
}  // namespace rondora
