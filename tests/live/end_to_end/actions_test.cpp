#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

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

TEST_F(EndToEndTest, ImpatientChoicesStartASlowApplicationOnce) {
  const auto go = desktop_.configHome() / "go", starts = desktop_.configHome() / "starts";
  writeFile(desktop_.configHome() / "slow", "echo >>" + starts.string() + "; until [ -e " + go.string() +
                                                " ]; do sleep 0.02; done; exec xterm -class Slow -T Slow -e cat\n");
  writeFile(desktop_.dataHome() / "applications" / "slow.desktop",
            "[Desktop Entry]\nType=Application\nName=Slow\nStartupWMClass=Slow\nExec=sh " +
                (desktop_.configHome() / "slow").string() + "\n");
  start(document({menu("Main", kControlAltSpace, {applicationItem("slow")})}));
  for (int i = 0; i < 3; ++i) choose(0, -kMiddleOfRing);
  ASSERT_TRUE(waitUntil([&] { return program_->logLines().size() >= 2; }));
  writeFile(go, "");
  ASSERT_TRUE(waitForActive("Slow"));
  EXPECT_EQ(readFile(starts), "\n");
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

class IconTest : public EndToEndTest {
 protected:
  /// Opens the ring and looks at that place relative to its centre.
  bool iconIsGreen(int right, int down) {
    const auto isGreen = [](std::uint32_t pixel) { return (pixel & 0xFFFFFFU) == 0x00FF00; };
    if (!open()) return false;
    const Capture icon = client_.capture({kSomewhere.x + right - 14, kSomewhere.y + down - 14, 28, 28});
    releaseChord();
    return program_->waitForNoRing() && std::ranges::count_if(icon.pixels, isGreen) > 400;
  }
};

TEST_F(IconTest, FetchedFaviconIsInTheNextRing) {
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

  EXPECT_TRUE(waitUntil([&] { return iconIsGreen(0, -kMiddleOfRing); }));
}

/// The drawing embeds a named pipe, so that the picture process blocks.
TEST_F(IconTest, StuckPictureNeitherStopsTheRingNorIsTriedAgain) {
  const auto pipe = desktop_.configHome() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const auto stuck = desktop_.configHome() / "stuck.svg";
  writeFile(stuck,
            "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink'><image width='9' "
            "height='9' xlink:href='" +
                pipe.string() + "'/></svg>");
  const auto green = desktop_.configHome() / "green.svg";
  writeFile(green, "<svg xmlns='http://www.w3.org/2000/svg'><rect width='9' height='9' fill='#0f0'/></svg>");
  std::vector<Document> items = snippetItems("Item", 4);
  items[0]["icon"] = stuck.string();  // is requested first
  items[1]["icon"] = green.string();
  const Document document = live::document({menu("Main", kControlAltSpace, items, -45)});
  int writer = -1;
  const auto hasReader = [&] { return (writer = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC)) >= 0; };
  start(document);
  ASSERT_TRUE(waitUntil(hasReader));
  EXPECT_TRUE(open());
  releaseChord();
  pollfd end{writer, 0, 0};
  EXPECT_EQ(poll(&end, 1, 0), 0) << "the ring waited for the picture";
  EXPECT_TRUE(waitUntil([&] { return poll(&end, 1, 0) > 0; })) << "the picture is not given up";
  close(writer);
  EXPECT_TRUE(waitUntil([&] { return iconIsGreen(kMiddleOfRing, 0); }));

  EXPECT_EQ(program_->terminate(), 0);
  start(document);
  EXPECT_TRUE(waitUntil([&] { return iconIsGreen(kMiddleOfRing, 0); }));
  EXPECT_FALSE(hasReader()) << "the picture is tried again";
}

}  // namespace
}  // namespace rondora::live
