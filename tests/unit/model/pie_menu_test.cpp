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

TEST(PieMenuTest, SharedLooksLeaveTheMenuItself) {
  SeededRandom random;
  PieMenu source;  // every field differs from the default
  source.id = random.uuid();
  source.name = "Source";
  source.hotkey = {1, 2};
  source.items.resize(3);
  source.kind = PieMenuKind::appCommands;
  source.runningAppsExcludedBundleIds = {"a"};
  source.runningAppsMenuEnabled = source.pawDecorationEnabled = false;
  source.trackpadFingerCount = 4;
  source.menuRadius = 90;
  source.innerRadius = 80;
  double change = 0;
  for (double PieMenu::*const number :
       {&PieMenu::iconDistance, &PieMenu::iconSize, &PieMenu::appearanceScale, &PieMenu::rotationDegrees,
        &PieMenu::animationDuration, &PieMenu::pawSizeScale, &PieMenu::pawRadialInset, &PieMenu::centerCatScale,
        &PieMenu::centerAppIconScale, &PieMenu::shortcutDigitSizeScale, &PieMenu::shortcutDigitInsetLeftScale,
        &PieMenu::shortcutDigitInsetRightScale, &PieMenu::shortcutDigitOpacity}) {
    source.*number += change += 0.01;
  }
  source.liquidGlass = {LiquidGlassVariant::clear, 0.5};
  source.appCommandsDefaultEntries = AppSubMenuEntry::automaticBuiltIns(random);
  source.shortcutDigitColorHex = "#000000";
  source.globalSidebarIconColorHex = "#111111";

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
