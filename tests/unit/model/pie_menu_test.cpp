#include "model/pie_menu.h"

#include <gtest/gtest.h>

#include "doubles/fake_devices.h"

namespace rondora {
namespace {

TEST(PieMenuTest, SharedLooksLeaveTheMenuItself) {
  PieMenu looks;  // each differs from the default
  looks.pawDecorationEnabled = false;
  looks.menuRadius = 90;
  looks.innerRadius = 80;
  double change = 0;
  for (double PieMenu::*const number :
       {&PieMenu::iconDistance, &PieMenu::iconSize, &PieMenu::appearanceScale, &PieMenu::rotationDegrees,
        &PieMenu::animationDuration, &PieMenu::pawSizeScale, &PieMenu::pawRadialInset, &PieMenu::centerCatScale,
        &PieMenu::shortcutDigitSizeScale, &PieMenu::shortcutDigitInsetLeftScale, &PieMenu::shortcutDigitInsetRightScale,
        &PieMenu::shortcutDigitOpacity}) {
    looks.*number += change += 0.01;
  }
  looks.liquidGlass = {LiquidGlassVariant::clear, 0.5};
  looks.shortcutDigitColorHex = "#000000";

  PieMenu source = looks;  // so does the rest
  source.id = SeededRandom().uuid();
  source.name = "Source";
  source.hotkey = {1, 2};
  source.items.resize(3);
  source.kind = PieMenuKind::appCommands;
  source.runningAppsExcludedBundleIds = {"a"};
  source.runningAppsMenuEnabled = false;
  source.trackpadFingerCount = 4;
  source.centerAppIconScale = 0.5;
  source.appCommandsDefaultEntries.resize(1);
  source.globalSidebarIconColorHex = "#111111";

  PieMenu target;
  target.applySharedVisualSettings(source);
  looks.innerRadius = 68;
  EXPECT_EQ(target, looks);
}

}  // namespace
}  // namespace rondora
