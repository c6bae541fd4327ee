#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "actions/action_services.h"
#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

PieMenuItem itemWith(MenuAction action) {
  PieMenuItem item;
  item.action = std::move(action);
  return item;
}

class AppLauncherTest : public ::testing::Test {
 protected:
  void execute(MenuAction action, std::optional<std::int32_t> targetPID = std::nullopt) {
    launcher_.execute(itemWith(std::move(action)), targetPID);
  }

  FakePlatform desktop_;
  ActionServices actions_{desktop_.actionPorts<ActionServices::Ports>(), desktop_.serialQueues.make()};
  AppLauncher& launcher_ = actions_.appLauncher;
};

TEST_F(AppLauncherTest, StartsAnApplicationThatDoesNotRun) {
  desktop_.workspace.install("editor", "Editor");
  execute(LaunchApp{"editor"});
  EXPECT_THAT(desktop_.workspace.openedApplications, ElementsAre("/apps/editor"));
  EXPECT_EQ(desktop_.workspace.frontmostApplication()->bundleIdentifier, "editor");
}

TEST_F(AppLauncherTest, BringsARunningApplicationForwardAndStartsNoSecondOne) {
  desktop_.workspace.install("editor", "Editor");
  const auto editor = desktop_.workspace.start("editor");
  desktop_.workspace.start("browser");
  execute(LaunchApp{"editor"});
  EXPECT_EQ(desktop_.workspace.frontmostApplication()->processIdentifier, editor.processIdentifier);
  EXPECT_THAT(desktop_.workspace.openedApplications, IsEmpty());
}

TEST_F(AppLauncherTest, OpensWhatCannotBeBroughtForward) {
  desktop_.workspace.install("editor", "Editor");
  const auto editor = desktop_.workspace.start("editor");
  desktop_.workspace.closeWindows(editor.processIdentifier);
  execute(LaunchApp{"editor"});
  EXPECT_THAT(desktop_.windowServer.frontRequests, IsEmpty());
  EXPECT_THAT(desktop_.workspace.openedApplications, ElementsAre("/apps/editor"));
}

TEST_F(AppLauncherTest, TakesTheFirstLiveOrdinaryInstance) {
  desktop_.workspace.install("editor", "Editor");
  RunningApplication instance{.processIdentifier = 11, .bundleIdentifier = "editor", .localizedName = "Editor"};
  instance.activationPolicy = ActivationPolicy::accessory;
  desktop_.workspace.addRunning(instance);
  EXPECT_FALSE(launcher_.runningApplication("editor"));
  instance = {.processIdentifier = 12, .bundleIdentifier = "editor", .localizedName = "Editor", .isTerminated = true};
  desktop_.workspace.addRunning(instance);
  EXPECT_FALSE(launcher_.runningApplication("editor"));
  execute(LaunchApp{"editor"});
  EXPECT_THAT(desktop_.windowServer.frontRequests, IsEmpty());
  EXPECT_THAT(desktop_.workspace.openedApplications, ElementsAre("/apps/editor"));
  const auto third = desktop_.workspace.start("editor");
  desktop_.workspace.start("editor");
  EXPECT_EQ(launcher_.runningApplication("editor")->processIdentifier, third.processIdentifier);
}

TEST_F(AppLauncherTest, DoesNothingForAnApplicationThatIsNotInstalled) {
  execute(LaunchApp{"missing"});
  EXPECT_THAT(desktop_.workspace.openedApplications, IsEmpty());
  EXPECT_THAT(desktop_.log.lines, IsEmpty());
}

TEST_F(AppLauncherTest, OpensAnAddressExactlyAsItIsStored) {
  execute(OpenURL{"example.org/a b"});
  desktop_.workspace.refusesUrls = true;
  execute(OpenURL{""});
  EXPECT_THAT(desktop_.workspace.openedUrls, ElementsAre("example.org/a b", ""));
}

TEST_F(AppLauncherTest, CopiesASnippetInPlaceOfWhatWasOnThePasteboard) {
  desktop_.pasteboard.setData("picture", "bytes");
  execute(Snippet{""});
  EXPECT_EQ(desktop_.pasteboard.data("picture"), "bytes");
  EXPECT_EQ(desktop_.pasteboard.clearCount, 0);
  execute(Snippet{" "});
  EXPECT_EQ(desktop_.pasteboard.string, " ");
  EXPECT_EQ(desktop_.pasteboard.data("picture"), std::nullopt);
}

TEST_F(AppLauncherTest, OpensTheApplicationsBehindTwoSystemActionsWhereTheyExist) {
  const std::string overview = "/System/Applications/Mission Control.app";
  const std::string screenSaver = "/System/Library/CoreServices/ScreenSaverEngine.app";
  execute(SystemShortcut{MacOSSystemActionKind::missionControl});
  EXPECT_THAT(desktop_.workspace.openedApplications, IsEmpty());
  desktop_.workspace.systemPaths = {overview, screenSaver};
  for (const auto kind : {MacOSSystemActionKind::missionControl, MacOSSystemActionKind::applicationWindows,
                          MacOSSystemActionKind::quickNote, MacOSSystemActionKind::startScreenSaver,
                          MacOSSystemActionKind::displaySleep, MacOSSystemActionKind::lockScreen}) {
    execute(SystemShortcut{kind});
  }
  EXPECT_THAT(desktop_.workspace.openedApplications, ElementsAre(overview, screenSaver));
}

TEST_F(AppLauncherTest, TypesAKeystrokeOnceItsTargetIsInFront) {
  const auto editor = desktop_.workspace.start("editor");
  desktop_.workspace.start("browser");
  execute(Keystroke{8, 0x100000}, editor.processIdentifier);
  execute(Unassigned{}, editor.processIdentifier);
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
  desktop_.workspace.bringForward(editor.processIdentifier);
  desktop_.time.advance(0.021);
  EXPECT_EQ(desktop_.keyEvents.posted.size(), 2U);
}

}  // namespace
}  // namespace rondora
