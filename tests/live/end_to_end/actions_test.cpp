#include <filesystem>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr const char* kText = "Grüße, 世界 — два";

class ActionsTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    desktop_.addApplication("alpha-terminal", "Alpha");
    desktop_.addApplication("beta-terminal", "Beta");
    writeFile(desktop_.dataHome() / "applications" / "address-handler.desktop",
              "[Desktop Entry]\nType=Application\nName=Address\nMimeType=x-scheme-handler/rondora-test;\n"
              "Exec=xterm -T %u -e cat\n");
    writeFile(desktop_.configHome() / "mimeapps.list",
              "[Default Applications]\nx-scheme-handler/rondora-test=address-handler.desktop\n");
    Document address = snippetItem("");
    address["action"] = {{"openURL", {{"url", "rondora-test:somewhere"}}}};
    start(document({menu(
        "Main", kControlAltSpace,
        {applicationItem("alpha-terminal"), applicationItem("beta-terminal"), snippetItem(kText), address}, -45)}));
  }
};

INSTANTIATE_TEST_SUITE_P(Live, ActionsTest, testing::Values(WindowManager::openbox, WindowManager::xfwm4), nameOf);

TEST_P(ActionsTest, ApplicationsTextsAndUrlsReachTheirPrograms) {
  choose(0, -kMiddleOfRing);
  ASSERT_TRUE(waitForActive("Alpha"));
  const auto alpha = client_.activeWindow();
  choose(kMiddleOfRing, 0);
  ASSERT_TRUE(waitForActive("Beta"));

  choose(0, -kMiddleOfRing);
  EXPECT_TRUE(waitForActive("Alpha"));
  EXPECT_EQ(client_.activeWindow(), alpha);
  expectAtRest();
  EXPECT_EQ(client_.windowsTitled("Alpha").size(), 1U);

  choose(0, kMiddleOfRing);
  EXPECT_TRUE(waitForClipboard(kText));
  EXPECT_EQ(desktop_.outputOf({"xclip", "-o", "-selection", "clipboard"}), kText);
  EXPECT_TRUE(waitForActive("Alpha"));
  choose(-kMiddleOfRing, 0);
  EXPECT_TRUE(waitForActive("rondora-test:somewhere"));
}

TEST_F(EndToEndTest, ClipboardManagerKeepsTheSnippetAfterTheEnd) {
  start(document({menu("Main", kControlAltSpace, {snippetItem(kText)})}));
  const auto manager = desktop_.start({"xfsettingsd", "--no-daemon", "--disable-wm-check"});
  ASSERT_TRUE(waitUntil([&] { return client_.selectionOwner("CLIPBOARD_MANAGER") != XCB_NONE; }));
  choose(0, -kMiddleOfRing);
  ASSERT_TRUE(waitForClipboard(kText));
  EXPECT_EQ(program_->terminate(), 0);
  EXPECT_TRUE(waitForClipboard(kText));
}

TEST_F(EndToEndTest, FetchedFaviconIsInTheNextRing) {
  const auto site = desktop_.configHome() / "site";
  writeFile(site / "favicon.ico", readFile(RONDORA_FIXTURES "/web/three-sizes.ico"));  // the middle size is green
  const auto server = desktop_.start({"python3", "-u", "-m", "http.server", "-b", "127.0.0.1", "-d", site, "0"});
  const std::string announcement = "http://127.0.0.1:";
  const auto log = [&] { return readFile(desktop_.logFile("python3")); };
  ASSERT_TRUE(waitUntil([&] { return log().find("/)") != log().npos; })) << log();
  const std::string address = log().substr(log().find(announcement), announcement.size() + 5);
  std::vector<Document> items = snippetItems("Item", 4);
  items.front()["icon"] = "favicon:" + address;
  start(document({menu("Main", kControlAltSpace, items, -45)}));

  const auto isGreen = [](std::uint32_t pixel) { return (pixel & 0xFFFFFFU) == 0x00FF00; };
  EXPECT_TRUE(waitUntil([&] {
    if (!open()) return false;
    const Capture icon = client_.capture({kSomewhere.x - 14, kSomewhere.y - kMiddleOfRing - 14, 28, 28});
    releaseChord();
    return program_->waitForNoRing() && std::ranges::count_if(icon.pixels, isGreen) > 400;
  }));
}

}  // namespace
}  // namespace rondora::live
