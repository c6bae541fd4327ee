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
  EXPECT_EQ(AppCommandsMenuItems::stableID(quit).string(), "2D34E169-6BCF-8D8B-9C70-77296F61B49E");
}

}  // namespace
}  // namespace rondora
