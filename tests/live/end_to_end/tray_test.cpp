#include <gmock/gmock.h>

#include <algorithm>

#include "live/end_to_end/end_to_end_test.h"
#include "support/status_notifier_host.h"

namespace rondora::live {
namespace {

using testing::ElementsAre;

/// The status item in the trays that desktops have, which come and go. None is there at first.
class TrayTest : public EndToEndTest {
 protected:
  TrayTest() : EndToEndTest({WindowManager::openbox, Compositor::picom, Tray::none}) {}

  void startIn(const std::string& language) {
    Document configuration = document({menu("Main", kControlAltSpace, snippetItems("Main", 4))});
    configuration["language"] = language;
    start(configuration);
  }
  std::string busAddress() const { return desktop_.environment().at("DBUS_SESSION_BUS_ADDRESS"); }

  bool waitForIcon() {
    return waitUntil([&] { return client_.trayIconOf(program_->pid()).has_value(); });
  }
  std::optional<Area> menuOnScreen() {
    for (const TopLevel& window : client_.topLevels()) {
      const bool isMenu = window.isViewable && window.isOverrideRedirect;
      if (isMenu && client_.ownerOf(window.window) == program_->pid()) return window.area;
    }
    return std::nullopt;
  }
  enum class Entry { settings, quit };
  /// Opens the icon's menu and clicks the entry.
  void chooseFromIcon(std::uint8_t button, Entry entry) {
    ASSERT_TRUE(waitForIcon());
    const Area icon = *client_.trayIconOf(program_->pid());
    client_.movePointer({icon.x + icon.width / 2, icon.y + icon.height / 2});
    client_.click(button);
    ASSERT_TRUE(waitUntil([&] { return menuOnScreen().has_value(); }));
    const Area menu = *menuOnScreen();
    const int quarters = entry == Entry::settings ? 1 : 3;
    client_.movePointer({menu.x + menu.width / 2, menu.y + menu.height * quarters / 4});
    client_.click();
    ASSERT_TRUE(waitUntil([&] { return !program_->isRunning() || !menuOnScreen(); }));
  }
  std::size_t linesAboutTheItem() {
    const auto lines = program_->logLines();
    return static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.starts_with("error: status item not visible: ");
    }));
  }
};

TEST_F(TrayTest, IsEmbeddedWhereThatIsAllThereIs) {
  auto tray = desktop_.startTray();
  startIn("en");
  chooseFromIcon(XCB_BUTTON_INDEX_3, Entry::settings);
  EXPECT_TRUE(waitForSettings());
  closeWindows();
  chooseFromIcon(XCB_BUTTON_INDEX_1, Entry::settings);
  EXPECT_TRUE(waitForSettings()) << "the other button serves as well";
  closeWindows();
  EXPECT_EQ(linesAboutTheItem(), 0U);
  tray.reset();
  EXPECT_TRUE(waitUntil([&] { return linesAboutTheItem() == 1; }));
  tray = desktop_.startTray();
  chooseFromIcon(XCB_BUTTON_INDEX_3, Entry::quit);
  EXPECT_EQ(program_->waitForExit(), 0);
}

TEST_F(TrayTest, WaitsForATrayThatComesLaterAndComesAgain) {
  startIn("en");
  ASSERT_TRUE(waitForSettings()) << "a way into the program there has to be";
  EXPECT_GE(linesAboutTheItem(), 1U);
  closeWindows();
  {
    const auto tray = desktop_.startTray();
    EXPECT_TRUE(waitForIcon());
  }
  const auto tray = desktop_.startTray();
  chooseFromIcon(XCB_BUTTON_INDEX_3, Entry::settings);
  EXPECT_TRUE(waitForSettings());
}

TEST_F(TrayTest, IsAnnouncedOnTheBusWhereAPanelListensThere) {
  const auto tray = desktop_.startTray();
  std::optional<StatusNotifierHost> panel(busAddress());
  startIn("de");
  ASSERT_TRUE(waitUntil([&] { return panel->itemCount() == 1; }));
  EXPECT_THAT(panel->menuLabels(), ElementsAre("Einstellungen", "", "Beenden"));
  ASSERT_TRUE(panel->choose("Einstellungen"));
  EXPECT_TRUE(waitForWindow());
  EXPECT_FALSE(client_.trayIconOf(program_->pid())) << "one icon is enough";

  panel.reset();
  panel.emplace(busAddress());
  ASSERT_TRUE(waitUntil([&] { return panel->itemCount() == 1; })) << "the panel started anew";
  ASSERT_TRUE(panel->choose("Beenden"));
  EXPECT_EQ(program_->waitForExit(), 0);
}

TEST_F(TrayTest, IsAnnouncedToAPanelThatComesLater) {
  startIn("ar");
  ASSERT_TRUE(waitForWindow());
  StatusNotifierHost panel(busAddress());
  ASSERT_TRUE(waitUntil([&] { return panel.itemCount() == 1; }));
  EXPECT_THAT(panel.menuLabels(), ElementsAre("الإعدادات", "", "إنهاء"));
}

}  // namespace
}  // namespace rondora::live
