#include "storage/pie_menu_item_pasteboard.h"

#include <gmock/gmock.h>

#include "doubles/fake_devices.h"
#include "doubles/fake_pasteboard.h"

namespace rondora {
namespace {

using testing::HasSubstr;
using testing::Not;

class PieMenuItemPasteboardTest : public testing::Test {
 protected:
  FakePasteboard pasteboard;
  SeededRandom random;
  PieMenuItemPasteboard items{pasteboard, random};
};

TEST_F(PieMenuItemPasteboardTest, GivesBackTheItemThatWasCopied) {
  PieMenuItem item;
  item.id = random.uuid();
  item.title = "Größe";
  item.action = Keystroke{8, 0x100000};
  item.customShortcut = "Q";
  pasteboard.setString("former");
  items.copy(item);
  EXPECT_EQ(items.read(), item);
  EXPECT_FALSE(pasteboard.string);
  EXPECT_THAT(pasteboard.dataByType.at("application/x-rondora.menu-item-v1"), Not(HasSubstr("\n")));
}

TEST_F(PieMenuItemPasteboardTest, OtherContentIsNoItem) {
  EXPECT_EQ(items.read(), std::nullopt);
  for (const std::string bytes : {"", "{", "[]", R"({"id": 1})", R"({"action": {"launchApp": {}}})"}) {
    pasteboard.setData(PieMenuItemPasteboard::kType, bytes);
    EXPECT_EQ(items.read(), std::nullopt) << bytes;
  }
}

}  // namespace
}  // namespace rondora
