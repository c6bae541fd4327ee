#include <gmock/gmock.h>

#include "actions/action_failures.h"
#include "app/action_services.h"
#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class AppLauncherTest : public ::testing::Test {
 protected:
  void execute(MenuAction action) {
    PieMenuItem item;
    item.action = std::move(action);
    launcher_.execute(item, std::nullopt);
  }

  FakePlatform desktop_;
  ActionServices actions_{desktop_.actionPorts<ActionServices::Ports>(), desktop_.serialQueue()};
  AppLauncher& launcher_ = actions_.appLauncher;
};

TEST_F(AppLauncherTest, StartsActivatesOrOpensAnApplication) {
  desktop_.workspace.install("editor", "Editor");
  execute(LaunchApp{"editor"});
  EXPECT_THAT(desktop_.workspace.openedApplications, ElementsAre("/apps/editor"));
  const auto editor = desktop_.workspace.frontmostApplication().value();
  EXPECT_EQ(editor.bundleIdentifier, "editor");
  desktop_.workspace.start("browser");
  execute(LaunchApp{"editor"});
  EXPECT_EQ(desktop_.workspace.frontmostApplication(), editor);
  EXPECT_THAT(desktop_.windowServer.frontRequests, SizeIs(1));
  EXPECT_THAT(desktop_.workspace.openedApplications, SizeIs(1)) << "it runs already";
  desktop_.workspace.closeWindows(editor.processIdentifier);
  execute(LaunchApp{"editor"});
  EXPECT_THAT(desktop_.windowServer.frontRequests, SizeIs(1));
  EXPECT_THAT(desktop_.workspace.openedApplications, SizeIs(2));
}

TEST_F(AppLauncherTest, StartsASlowApplicationOnce) {
  const auto& opened = desktop_.workspace.openedApplications;
  desktop_.workspace.install("slow", "Slow");
  desktop_.workspace.slow = {"slow"};
  for (int i = 0; i < 3; ++i) execute(LaunchApp{"slow"});
  EXPECT_THAT(opened, SizeIs(1));
  EXPECT_THAT(desktop_.log.lines, SizeIs(2));
  const auto window = desktop_.workspace.start("slow");
  desktop_.workspace.quit(window.processIdentifier);
  execute(LaunchApp{"slow"});
  EXPECT_THAT(opened, SizeIs(2)) << "its window appeared and was closed";
  desktop_.time.advance(9.9);
  execute(LaunchApp{"slow"});
  EXPECT_THAT(opened, SizeIs(2));
  desktop_.time.advance(0.2);
  execute(LaunchApp{"slow"});
  EXPECT_THAT(opened, SizeIs(3)) << "ten seconds passed";
  desktop_.workspace.endedProcesses = {{"slow", StartedProcess::succeeded}};
  execute(LaunchApp{"slow"});
  EXPECT_THAT(opened, SizeIs(4)) << "its process ended";
}

TEST_F(AppLauncherTest, ReportsAnApplicationThatFailsBeforeItShowsAWindow) {
  auto& workspace = desktop_.workspace;
  workspace.install("wrapper", "Wrapper");
  workspace.slow = {"wrapper"};
  std::vector<std::optional<ActionFailure>> ended;
  PieMenuItem item;
  item.action = LaunchApp{"wrapper"};
  const auto run = [&](double seconds, std::optional<StartedProcess> end, const std::string& appears = {}) {
    ended.clear();
    workspace.endedProcesses.clear();
    launcher_.execute(item, std::nullopt, [&](const auto& each) { ended.push_back(each); });
    desktop_.time.advance(seconds);
    if (end) workspace.endedProcesses = {{"wrapper", *end}};
    desktop_.time.advance(1);
    if (!appears.empty()) workspace.start(appears);
    desktop_.time.advance(12);
    return ended;
  };
  const std::optional<ActionFailure> failure = ActionFailure{ActionProblem::endedAtOnce, "Wrapper"};
  EXPECT_THAT(run(0, StartedProcess::failed), ElementsAre(failure));
  EXPECT_THAT(run(8, StartedProcess::failed, desktop_.environment.bundleIdentifier()), ElementsAre(failure));
  EXPECT_THAT(run(1, StartedProcess::failed, "browser"), ElementsAre(std::nullopt)) << "it handed over";
  EXPECT_THAT(run(1, StartedProcess::succeeded), ElementsAre(std::nullopt));
  EXPECT_THAT(run(11, StartedProcess::failed), ElementsAre(std::nullopt)) << "it was used without a window";
  EXPECT_THAT(run(0, std::nullopt, "wrapper"), ElementsAre(std::nullopt));
}

TEST_F(AppLauncherTest, TakesTheFirstLiveOrdinaryInstance) {
  desktop_.workspace.install("editor", "Editor");
  RunningApplication instance{.processIdentifier = 11, .bundleIdentifier = "editor", .localizedName = "Editor"};
  instance.activationPolicy = ActivationPolicy::accessory;
  desktop_.workspace.addRunning(instance);
  instance = {.processIdentifier = 12, .bundleIdentifier = "editor", .localizedName = "Editor", .isTerminated = true};
  desktop_.workspace.addRunning(instance);
  execute(LaunchApp{"editor"});
  EXPECT_THAT(desktop_.windowServer.frontRequests, IsEmpty());
  EXPECT_THAT(desktop_.workspace.openedApplications, ElementsAre("/apps/editor"));
  const auto first = desktop_.workspace.start("editor");
  desktop_.workspace.start("editor");
  EXPECT_EQ(launcher_.runningApplication("editor")->processIdentifier, first.processIdentifier);
}

TEST_F(AppLauncherTest, CopiedSnippetReplacesThePasteboard) {
  desktop_.pasteboard.setData("picture", "bytes");
  execute(Snippet{""});
  EXPECT_EQ(desktop_.pasteboard.data("picture"), "bytes");
  EXPECT_EQ(desktop_.pasteboard.clearCount, 0);
  execute(Snippet{" "});
  EXPECT_EQ(desktop_.pasteboard.string, " ");
  EXPECT_EQ(desktop_.pasteboard.data("picture"), std::nullopt);
}

TEST_F(AppLauncherTest, OpensStoredAddressesAndPresentApplications) {
  const auto runAll = [this] {
    execute(LaunchApp{"missing"});
    for (const auto kind : {MacOSSystemActionKind::missionControl, MacOSSystemActionKind::applicationWindows,
                            MacOSSystemActionKind::quickNote, MacOSSystemActionKind::startScreenSaver,
                            MacOSSystemActionKind::displaySleep, MacOSSystemActionKind::lockScreen}) {
      execute(SystemShortcut{kind});
    }
  };
  execute(OpenURL{"example.org/a b"});
  EXPECT_THAT(desktop_.workspace.openedUrls, ElementsAre("example.org/a b"));
  runAll();
  EXPECT_THAT(desktop_.workspace.openedApplications, IsEmpty());
  EXPECT_THAT(desktop_.log.lines, IsEmpty());
  const std::string overview = "/System/Applications/Mission Control.app";
  const std::string screenSaver = "/System/Library/CoreServices/ScreenSaverEngine.app";
  desktop_.workspace.systemPaths = {overview, screenSaver};
  runAll();
  EXPECT_THAT(desktop_.workspace.openedApplications, ElementsAre(overview, screenSaver));
}

TEST_F(AppLauncherTest, ReportsHowEachActionEnded) {
  desktop_.workspace.install("broken", "Broken");
  desktop_.workspace.install("editor", "Editor");
  desktop_.workspace.broken = {"broken"};
  desktop_.workspace.contentTypes = {{"com.apple.Music", "audio/mpeg"}};
  desktop_.workspace.opensUrls = false;
  desktop_.keyEvents.missingKeys = {200};
  using P = ActionProblem;
  const std::pair<MenuAction, std::optional<ActionFailure>> cases[] = {
      {LaunchApp{"editor"}, std::nullopt},
      {LaunchApp{"missing"}, ActionFailure{P::notInstalled, "missing"}},
      {LaunchApp{"com.apple.Terminal"}, ActionFailure{P::notInstalled, "Terminal"}},
      {LaunchApp{"com.apple.Music"}, ActionFailure{P::noDefault, "audio/mpeg"}},
      {LaunchApp{"broken"}, ActionFailure{P::cannotStart, "Broken"}},
      {OpenURL{"example.org:80"}, ActionFailure{P::noHandler, "example.org:80"}},
      {OpenURL{"example.org"}, ActionFailure{P::notAnAddress, "example.org"}},
      {OpenURL{"https://a b"}, ActionFailure{P::notAnAddress, "https://a b"}},
      {SystemShortcut{MacOSSystemActionKind::missionControl}, ActionFailure{P::noSystemAction}},
      {Keystroke{8, 0}, std::nullopt},
      {Keystroke{200, 0}, ActionFailure{P::noSuchKey}}};
  for (const auto& [action, failure] : cases) {
    SCOPED_TRACE(action.index());
    std::vector<std::optional<ActionFailure>> ended;
    PieMenuItem item;
    item.action = action;
    launcher_.execute(item, std::nullopt, [&](const auto& each) { ended.push_back(each); });
    EXPECT_THAT(ended, ElementsAre(failure));
  }
}

TEST(ActionFailures, HoldsTheLastFive) {
  FakeLog log;
  ActionFailures failures(log);
  for (const char* url : {"a", "b", "c", "d", "e", "f", "d"}) failures.failed({OpenURL{url}, url, "Main", {}});
  std::string items;
  for (const auto& entry : failures.entries()) items += entry.item;
  EXPECT_EQ(items, "dfecb");
}

TEST_F(AppLauncherTest, OpensFilesOfThisMachineOnly) {
  for (const char* elsewhere :
       {"file://host/etc/passwd", "FILE://host", "file://localhost.evil/a", "file://u@localhost/a",
        "file://localhost:1/a", "file://127.0.0.1/a", "file://%6Cocalhost/a"}) {
    execute(OpenURL{elsewhere});
  }
  EXPECT_THAT(desktop_.workspace.openedUrls, IsEmpty());
  for (const char* here : {"file:///a", "file://localhost/a", "file://LocalHost/a", "file:/a", "smb://host/a"}) {
    execute(OpenURL{here});
    EXPECT_EQ(desktop_.workspace.openedUrls.back(), here);
  }
}

}  // namespace
}  // namespace rondora
