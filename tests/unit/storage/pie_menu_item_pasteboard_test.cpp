#include "storage/pie_menu_item_pasteboard.h"

#include <gmock/gmock.h>

#include "doubles/fake_devices.h"
#include "doubles/fake_pasteboard.h"

namespace rondora {
namespace {

TEST(PieMenuItemPasteboardTest, ItemsRoundTripAndOtherDataIsRejected) {
  FakePasteboard pasteboard;
  SeededRandom random;
  PieMenuItemPasteboard items{pasteboard, random};
  EXPECT_EQ(items.read(), std::nullopt);
  PieMenuItem item;
  item.id = random.uuid();
  item.title = "Größe";
  item.action = Keystroke{8, 0x100000};
  item.customShortcut = "Q";
  pasteboard.setString("former");
  items.copy(item);
  EXPECT_EQ(items.read(), item);
  EXPECT_FALSE(pasteboard.string);
  EXPECT_EQ(pasteboard.dataByType.at("application/x-rondora.menu-item-v1").find('\n'), std::string::npos);

  item.title = "a\xFFz";
  items.copy(item);
  EXPECT_EQ(items.read()->title, "a\uFFFDz") << "ill-formed text is written with replacement characters";
  for (const std::string bytes : {"", "{", "[]", R"({"action": {"launchApp": {}}})"}) {
    pasteboard.setData(PieMenuItemPasteboard::kType, bytes);
    EXPECT_EQ(items.read(), std::nullopt) << bytes;
  }
}

}  // namespace
}  // namespace rondora
