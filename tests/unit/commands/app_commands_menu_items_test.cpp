#include "commands/app_commands_menu_items.h"

#include <gtest/gtest.h>

namespace rondora {
namespace {

TEST(AppCommandsMenuItems, IdentifiersAreStableAndDistinct) {
  const PieSubAction copy{"Copy", "", AppSubMenuEntry::Kind::menuItem, {"Edit", "Copy"}, MenuShortcut{"c", 0}};
  EXPECT_EQ(AppCommandsMenuItems::stableID(copy), AppCommandsMenuItems::stableID(PieSubAction(copy)));
  PieSubAction other = copy;
  other.menuPath = {"EditCopy"};
  EXPECT_NE(AppCommandsMenuItems::stableID(copy), AppCommandsMenuItems::stableID(other));
  const PieSubAction quit{"Quit", "xmark", AppSubMenuEntry::Kind::quitApp, {}, {}};
  const PieSubAction sameQuit{"Beenden", "power", AppSubMenuEntry::Kind::quitApp, {}, {}, "Ctrl+Q", false};
  EXPECT_EQ(AppCommandsMenuItems::stableID(quit), AppCommandsMenuItems::stableID(sameQuit));
  EXPECT_EQ(AppCommandsMenuItems::stableID(quit).string(), "78D77C57-47DB-8657-9DD4-9307851C38CE");
}

}  // namespace
}  // namespace rondora
