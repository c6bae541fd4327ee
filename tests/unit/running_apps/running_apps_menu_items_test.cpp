#include "running_apps/running_apps_menu_items.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

#include "doubles/fake_workspace.h"
#include "doubles/stories.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct RunningApps {
  std::vector<PieMenuItem> build() { return items.build(menu); }
  Words titles() {
    Words titles;
    for (const auto& item : build()) titles.push_back(item.title);
    return titles;
  }

  FakeWorkspace workspace;
  PieMenu menu;
  RunningAppsActivationHistory history{workspace};
  RunningAppsMenuItems items{workspace, history, "org.example.Own"};
};

struct RunningAppsStory : RunningApps, Story {
  RunningAppsStory() {
    history.startObservingIfNeeded();
    const auto process = [this](const std::string& name) {
      return workspace.runningApplications(name).at(0).processIdentifier;
    };
    actions = {{"start",
                [this](const Words& names) {
                  for (const auto& name : names) workspace.start(name);
                }},
               {"leave", [this](const Words&) { workspace.leaveAll(); }},
               {"front", [=, this](const Words& w) { workspace.bringForward(process(w.at(0))); }},
               {"quit", [=, this](const Words& w) { workspace.quit(process(w.at(0))); }},
               {"exclude", [this](const Words& names) { menu.runningAppsExcludedBundleIds = names; }}};
    observations = {{"titles", [this] { return joined(titles()); }}};
  }
};

class RunningAppsTest : public ::testing::Test, protected RunningApps {};

TEST(RunningAppsStories, PlayAsWritten) { playStories<RunningAppsStory>("running_apps"); }

TEST_F(RunningAppsTest, ShowsEachOrdinaryApplicationOnceAndLeavesOutTheRest) {
  menu.runningAppsExcludedBundleIds = {"MAIL.Über"};
  workspace.install("tray", "Tray", ActivationPolicy::accessory);
  workspace.start("tray");
  workspace.start("mail.über");
  workspace.start("org.example.own");
  workspace.start("editor");
  workspace.start("editor");
  workspace.addRunning({.processIdentifier = 7, .bundleIdentifier = std::nullopt, .localizedName = "xterm"});
  workspace.addRunning({.processIdentifier = 8, .bundleIdentifier = "", .localizedName = "nameless"});
  workspace.addRunning(
      {.processIdentifier = 9, .bundleIdentifier = "gone", .localizedName = "Gone", .isTerminated = true});
  EXPECT_THAT(titles(), ElementsAre("editor"));
}

TEST_F(RunningAppsTest, MakesAnItemThatLaunchesTheApplication) {
  workspace.install("org.example.Editor", "Text Editor");
  workspace.start("org.example.Editor");
  const auto built = build();
  ASSERT_EQ(built.size(), 1U);
  EXPECT_EQ(built[0].title, "Text Editor");
  EXPECT_EQ(built[0].icon, "app:org.example.Editor");
  EXPECT_EQ(built[0].action, MenuAction(LaunchApp{"org.example.Editor"}));
  workspace.addRunning({.processIdentifier = 7, .bundleIdentifier = "untitled", .localizedName = ""});
  EXPECT_EQ(build()[0].title, "untitled");
}

TEST_F(RunningAppsTest, ShowsTwelveWithStableIdsAndColours) {
  history.startObservingIfNeeded();
  for (int i = 0; i < 8; ++i) workspace.start("app" + std::to_string(i));
  std::map<std::string, std::string> colors;
  std::set<std::string> distinct;
  for (const auto& item : build()) distinct.insert(colors[item.title] = item.color);
  EXPECT_EQ(distinct.size(), kItemColorPalette.size());
  for (int i = 8; i < 20; ++i) workspace.start("app" + std::to_string(i));
  const auto built = build();
  ASSERT_EQ(built.size(), 12U);
  EXPECT_EQ(built[0].title, "app18");
  EXPECT_EQ(built[1].title, "app8");
  EXPECT_EQ(built[11].title, "app19");
  std::set<Uuid> ids;
  for (std::size_t i = 0; i < built.size(); ++i) {
    EXPECT_EQ(built[i].sectorIndex, static_cast<std::int64_t>(i));
    EXPECT_EQ(built[i].color, colors.emplace(built[i].title, built[i].color).first->second) << built[i].title;
    ids.insert(built[i].id);
  }
  EXPECT_EQ(ids.size(), 12U);
  workspace.bringForward(workspace.runningApplications()[10].processIdentifier);
  workspace.quit(workspace.runningApplications()[11].processIdentifier);
  for (const auto& item : build()) {
    EXPECT_EQ(item.color, colors.emplace(item.title, item.color).first->second) << item.title;
  }
}

TEST_F(RunningAppsTest, HistoryKeepsTheLatestApplicationsWithAnIdentifier) {
  history.startObservingIfNeeded();
  workspace.addRunning({.processIdentifier = 7, .bundleIdentifier = std::nullopt, .localizedName = "xterm"});
  workspace.bringForward(7);
  EXPECT_THAT(history.bundleIdentifiers(), IsEmpty());
  for (std::size_t i = 0; i <= RunningAppsActivationHistory::kCapacity; ++i) workspace.start(std::to_string(i));
  ASSERT_EQ(history.bundleIdentifiers().size(), RunningAppsActivationHistory::kCapacity);
  EXPECT_EQ(history.bundleIdentifiers().back(), "1");
}

}  // namespace
}  // namespace rondora
