#include "running_apps/running_apps_menu_items.h"

#include <gmock/gmock.h>

#include <map>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RunningAppsTest : public ::testing::Test {
 protected:
  std::vector<PieMenuItem> build() { return items_.build(menu_); }
  std::vector<std::string> titles() {
    std::vector<std::string> titles;
    for (const auto& item : build()) titles.push_back(item.title);
    return titles;
  }
  FakeWorkspace& workspace() { return desktop_.workspace; }

  FakePlatform desktop_;
  PieMenu menu_;
  RunningAppsActivationHistory history_{desktop_.workspace};
  RunningAppsMenuItems items_{desktop_.workspace, history_, "org.example.Own"};
};

TEST_F(RunningAppsTest, BeginsWithTheApplicationThatWasActiveBefore) {
  history_.startObservingIfNeeded();
  const auto mail = workspace().start("mail");
  const auto editor = workspace().start("editor");
  const auto browser = workspace().start("browser");
  EXPECT_THAT(titles(), ElementsAre("editor", "mail", "browser"));
  workspace().bringForward(editor.processIdentifier);
  EXPECT_THAT(titles(), ElementsAre("browser", "mail", "editor"));
  workspace().leaveAll();
  EXPECT_THAT(titles(), ElementsAre("editor", "mail", "browser")) << "nothing is in front: back to the last one";
  workspace().bringForward(browser.processIdentifier);
  workspace().quit(editor.processIdentifier);
  EXPECT_THAT(titles(), ElementsAre("mail", "browser"));
  menu_.runningAppsExcludedBundleIds = {"mail"};
  EXPECT_THAT(titles(), ElementsAre("browser")) << "the present one stays when it is all there is";
}

TEST_F(RunningAppsTest, TheOthersKeepTheirPlacesWhileApplicationsComeAndGo) {
  history_.startObservingIfNeeded();
  const auto mail = workspace().start("mail");
  workspace().start("music");
  const auto editor = workspace().start("editor");
  workspace().start("browser");
  EXPECT_THAT(titles(), ElementsAre("editor", "mail", "music", "browser"));
  workspace().start("chat");
  EXPECT_THAT(titles(), ElementsAre("browser", "mail", "music", "editor", "chat"));
  workspace().quit(mail.processIdentifier);
  EXPECT_THAT(titles(), ElementsAre("browser", "music", "editor", "chat"));
  workspace().bringForward(editor.processIdentifier);
  workspace().start("mail");
  EXPECT_THAT(titles(), ElementsAre("editor", "music", "browser", "chat", "mail")) << "started again, it is the newest";
}

TEST_F(RunningAppsTest, ShowsEachOrdinaryApplicationOnceAndLeavesOutTheRest) {
  menu_.runningAppsExcludedBundleIds = {"MAIL.Über"};
  workspace().install("tray", "Tray", ActivationPolicy::accessory);
  workspace().start("tray");
  workspace().start("mail.über");
  workspace().start("org.example.own");
  workspace().start("editor");
  workspace().start("editor");
  workspace().addRunning({.processIdentifier = 7, .bundleIdentifier = std::nullopt, .localizedName = "xterm"});
  workspace().addRunning({.processIdentifier = 8, .bundleIdentifier = "", .localizedName = "nameless"});
  workspace().addRunning(
      {.processIdentifier = 9, .bundleIdentifier = "gone", .localizedName = "Gone", .isTerminated = true});
  EXPECT_THAT(titles(), ElementsAre("editor"));
}

TEST_F(RunningAppsTest, MakesAnItemThatLaunchesTheApplication) {
  workspace().install("org.example.Editor", "Text Editor");
  workspace().start("org.example.Editor");
  const auto items = build();
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].title, "Text Editor");
  EXPECT_EQ(items[0].icon, "app:org.example.Editor");
  EXPECT_EQ(items[0].action, MenuAction(LaunchApp{"org.example.Editor"}));
  workspace().addRunning({.processIdentifier = 7, .bundleIdentifier = "untitled", .localizedName = ""});
  EXPECT_EQ(build()[0].title, "untitled");
}

TEST_F(RunningAppsTest, ShowsAtMostTheLastTwelveWithColoursBySectorAndLastingIds) {
  history_.startObservingIfNeeded();
  for (int i = 0; i < 20; ++i) workspace().start("app" + std::to_string(i));
  const auto items = build();
  ASSERT_EQ(items.size(), 12U);
  EXPECT_EQ(items[0].title, "app18");
  EXPECT_EQ(items[1].title, "app8");
  EXPECT_EQ(items[11].title, "app19");
  std::map<Uuid, std::string> ids;
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(items[i].sectorIndex, static_cast<std::int64_t>(i));
    EXPECT_EQ(items[i].color, kItemColorPalette[i % 8]);
    ids[items[i].id] = items[i].title;
  }
  EXPECT_EQ(ids.size(), 12U);
  workspace().bringForward(workspace().runningApplications()[10].processIdentifier);
  for (const auto& item : build()) EXPECT_EQ(ids[item.id], item.title);
}

TEST_F(RunningAppsTest, ForgetsTheLongestInactiveOfVeryManyAndThoseWithoutIdentifier) {
  history_.startObservingIfNeeded();
  workspace().addRunning({.processIdentifier = 7, .bundleIdentifier = std::nullopt, .localizedName = "xterm"});
  workspace().bringForward(7);
  EXPECT_THAT(history_.bundleIdentifiers(), IsEmpty());
  for (std::size_t i = 0; i <= RunningAppsActivationHistory::kCapacity; ++i) workspace().start(std::to_string(i));
  ASSERT_EQ(history_.bundleIdentifiers().size(), RunningAppsActivationHistory::kCapacity);
  EXPECT_EQ(history_.bundleIdentifiers().back(), "1");
}

}  // namespace
}  // namespace rondora
