#include <gmock/gmock.h>

#include <set>

#include "doubles/fake_devices.h"
#include "model/pie_configuration.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class FirstRunDocumentTest : public testing::Test {
 protected:
  SeededRandom random;
  PieConfiguration document = PieConfiguration::defaultConfig(random);
};

TEST_F(FirstRunDocumentTest, HasThreeMenusWithTheirTriggers) {
  ASSERT_THAT(document.menus, SizeIs(3));
  EXPECT_EQ(document.menus[0].name, "Main");
  EXPECT_EQ(document.menus[0].hotkey, (HotkeyConfig{49, 0x1800}));
  EXPECT_EQ(document.menus[1].name, "Active apps");
  EXPECT_EQ(document.menus[1].kind, PieMenuKind::runningApps);
  EXPECT_EQ(document.menus[1].hotkey, (HotkeyConfig{48, 0x100}));
  EXPECT_EQ(document.menus[2].name, "App commands");
  EXPECT_EQ(document.menus[2].kind, PieMenuKind::appCommands);
  EXPECT_FALSE(document.menus[2].hotkey.isAssigned());
  EXPECT_EQ(document.menus[2].rotationDegrees, -22.5);
  EXPECT_FALSE(document.menus[2].pawDecorationEnabled);
}

TEST_F(FirstRunDocumentTest, MainMenuLaunchesSixApplications) {
  const auto& items = document.menus[0].items;
  ASSERT_THAT(items, SizeIs(6));
  std::vector<std::string> rows;
  for (const PieMenuItem& item : items) {
    rows.push_back(std::to_string(item.sectorIndex) + " " + item.title + " " + item.icon + " " +
                   std::get<LaunchApp>(item.action).bundleIdentifier + " " + item.color);
  }
  EXPECT_THAT(rows,
              ElementsAre("0 Safari safari com.apple.Safari #007AFF", "1 Terminal terminal com.apple.Terminal #28CD41",
                          "2 Finder folder.fill com.apple.finder #5AC8FA",
                          "3 Settings gearshape.fill com.apple.systempreferences #8E8E93",
                          "4 Music music.note com.apple.Music #FF2D55", "5 Notes note.text com.apple.Notes #FFCC00"));
}

TEST_F(FirstRunDocumentTest, EveryIdIsItsOwn) {
  std::set<Uuid> ids;
  std::size_t count = 0;
  for (const PieMenu& menu : document.menus) {
    ids.insert(menu.id);
    ++count;
    for (const PieMenuItem& item : menu.items) ids.insert(item.id);
    count += menu.items.size();
    for (const AppSubMenuEntry& entry : menu.appCommandsDefaultEntries) ids.insert(entry.id);
    count += menu.appCommandsDefaultEntries.size();
  }
  EXPECT_EQ(ids.size(), count);
  EXPECT_FALSE(ids.contains(Uuid()));
  EXPECT_NE(document, PieConfiguration::defaultConfig(random));
}

}  // namespace
}  // namespace rondora
