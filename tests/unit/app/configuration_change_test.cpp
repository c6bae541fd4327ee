#include <gmock/gmock.h>

#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::ElementsAre;

class ConfigurationChangeTest : public ProgramTest {};

TEST_F(ConfigurationChangeTest, ClosesASpecialMenuThatWasSwitchedOff) {
  PieMenu special = runningAppsMenu({kKKey, 0});
  launchWith({special});
  press({kKKey});
  ASSERT_EQ(shownMenu(), "running");
  special.runningAppsMenuEnabled = false;
  useMenus({special});
  EXPECT_FALSE(isMenuUp());
  EXPECT_THAT(desktop.workspace.activationRequests, ElementsAre(editor.processIdentifier));
}

TEST_F(ConfigurationChangeTest, LeavesAnOpenStandardMenuOpenAndStillOwesItsRelease) {
  PieMenu standard = menu("main", {kKKey, 0});
  launchWith({standard});
  press({kKKey});
  standard.name = "renamed";
  useMenus({standard});
  EXPECT_EQ(shownMenu(), "renamed");
  release({kKKey});
  EXPECT_FALSE(isMenuUp());
}

TEST_F(ConfigurationChangeTest, OwesTheReleaseOfAKeyThatWentUpBeforeTheMenuWasUp) {
  launchWith({menu("main", {kKKey, 0})});
  desktop.keyboard.press(kKKey);
  PieConfiguration configuration = program.configManager.current();
  configuration.menus.front().name = "renamed";
  program.configManager.save(configuration);
  desktop.keyboard.release(kKKey);
  desktop.time.runUntilIdle();
  EXPECT_EQ(desktop.overlay.panels.size(), 1U);
  EXPECT_FALSE(isMenuUp());
}

TEST_F(ConfigurationChangeTest, StepsWithTheHotkeyThatOpenedTheMenuWhenTheDocumentHasAnother) {
  PieMenu standard = menu("main", {49, kControlOption});
  launchWith({standard});
  pressChord();
  standard.hotkey = {kKKey, 0};
  useMenus({standard});
  release({Key::kSpaceKey});
  press({Key::kSpaceKey});
  EXPECT_EQ(highlightedItem(), "browser");
  release({Key::kOptionKey});
  EXPECT_EQ(frontApplication(), "org.example.browser");
}

TEST_F(ConfigurationChangeTest, FollowsTheFingerCountsAndLeavesAnUnchangedSetAlone) {
  auto& trackpad = program.delegate.trackpadGestureMonitor();
  PieMenu tapped = menu("tapped", {});
  tapped.trackpadFingerCount = 4;
  launchWith({tapped});
  EXPECT_THAT(trackpad.fingerCounts(), ElementsAre(4));

  trackpad.stop();
  tapped.name = "renamed";
  useMenus({tapped});
  EXPECT_TRUE(trackpad.fingerCounts().empty());

  tapped.trackpadFingerCount = 5;
  useMenus({tapped});
  EXPECT_THAT(trackpad.fingerCounts(), ElementsAre(5));
  tapped.trackpadFingerCount = 0;
  useMenus({tapped});
  EXPECT_TRUE(trackpad.fingerCounts().empty());
}

TEST_F(ConfigurationChangeTest, PutsTheMenusIntoTheNewLanguage) {
  launch();
  const auto titles = [this] {
    const auto& menu = desktop.statusBar.items.back()->description.menu;
    return std::vector<std::string>{menu.at(0).title, menu.at(2).title, desktop.shell.mainMenu.front().title};
  };
  const auto english = titles();
  PieConfiguration configuration = program.configManager.current();
  configuration.language = AppLanguage::german;
  program.configManager.save(configuration);
  EXPECT_EQ(program.localization.language(), AppLanguage::german);
  EXPECT_THAT(titles(),
              ElementsAre(program.localization.text(StringKey::settings), program.localization.text(StringKey::quit),
                          program.localization.text(StringKey::settings)));
  EXPECT_NE(titles(), english);
}

}  // namespace
}  // namespace rondora
