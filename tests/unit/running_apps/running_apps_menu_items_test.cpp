#include "running_apps/running_apps_menu_items.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RunningAppsTest : public ::testing::Test {
 protected:
  std::vector<PieMenuItem> build() const { return items_.build(menu_); }
  std::vector<std::string> titles() const {
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

TEST_F(RunningAppsTest, FollowsTheOrderOfLastActivation) {
  workspace().start("never.active");
  workspace().start("before");
  history_.startObservingIfNeeded();
  history_.startObservingIfNeeded();
  const auto editor = workspace().start("editor");
  workspace().start("browser");
  EXPECT_THAT(titles(), ElementsAre("browser", "editor", "before", "never.active"));
  workspace().bringForward(editor.processIdentifier);
  EXPECT_THAT(titles(), ElementsAre("editor", "browser", "before", "never.active"));
  EXPECT_THAT(history_.bundleIdentifiers(), ElementsAre("editor", "browser", "before"));
}

TEST_F(RunningAppsTest, KeepsThePlatformsOrderOfApplicationsNeverSeenActive) {
  workspace().start("c");
  workspace().start("a");
  workspace().start("b");
  EXPECT_THAT(titles(), ElementsAre("c", "a", "b"));
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
  EXPECT_EQ(build()[1].title, "untitled");
}

TEST_F(RunningAppsTest, ShowsAtMostTheLastTwelveWithColoursBySector) {
  history_.startObservingIfNeeded();
  for (int i = 0; i < 20; ++i) workspace().start("app" + std::to_string(i));
  const auto items = build();
  ASSERT_EQ(items.size(), 12U);
  EXPECT_EQ(items[0].title, "app19");
  EXPECT_EQ(items[11].title, "app8");
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(items[i].sectorIndex, static_cast<std::int64_t>(i));
    EXPECT_EQ(items[i].color, kItemColorPalette[i % 8]);
  }
}

TEST_F(RunningAppsTest, GivesAnApplicationTheSameIdEveryTimeAndNoTwoTheSame) {
  std::set<Uuid> ids;
  for (int i = 0; i < 12; ++i) workspace().start("app" + std::to_string(i));
  const auto first = build();
  for (const auto& item : first) ids.insert(item.id);
  EXPECT_EQ(ids.size(), 12U);
  history_.startObservingIfNeeded();
  const auto later = build();
  EXPECT_EQ(later[0].title, "app11");
  EXPECT_EQ(later[0].id, first[11].id);
  EXPECT_EQ(later[1].id, first[0].id);
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
