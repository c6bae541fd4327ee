#include <optional>

#include "desktop/key_logger.h"
#include "desktop/wait.h"
#include "desktop/x_server.h"
#include "live/workspace/workspace_test.h"

namespace rondora::live {
namespace {

using ActivationTest = WorkspaceTest;

TEST_F(ActivationTest, ClosedWindowIsReplacedEndedProgramIsNot) {
  std::optional<KeyLogger> first(std::in_place, desktop().display(), "first");
  ASSERT_TRUE(becomesActive(first->window()));
  std::optional<KeyLogger> second(std::in_place, desktop().display(), "second");
  ASSERT_TRUE(becomesActive(second->window()));
  const auto remembered = running(kOwnIdentifier).value();
  ASSERT_EQ(remembered.window, second->window());
  const auto terminal = startTerminal("the terminal");
  second.reset();
  ASSERT_TRUE(eventually([this] { return windowTitled("second") == XCB_NONE; }));
  EXPECT_TRUE(workspaceForUser().activate(remembered));
  EXPECT_TRUE(becomesActive(first->window()));
  EXPECT_TRUE(workspaceForUser().activate(remembered)) << "active already";
  EXPECT_EQ(running(kOwnIdentifier)->window, first->window());

  first.reset();
  ASSERT_TRUE(eventually([this] { return !running(kOwnIdentifier); }));
  EXPECT_FALSE(workspaceForUser().activate(remembered));
}

TEST_F(ActivationTest, WorksWithoutAWindowManager) {
  const XServer server;
  auto environment = desktop().environment();
  environment["DISPLAY"] = server.display();
  const ChildProcess one({"xterm", "-T", "one", "-e", "cat"}, environment);
  const ChildProcess two({"xterm", "-T", "two", "-e", "cat"}, environment);
  ASSERT_TRUE(one.waitForChild("cat") && two.waitForChild("cat"));
  WorkspaceUnderTest bare(server.display(), installed_);
  ASSERT_TRUE(waitUntil([&] { return bare.workspace.runningApplications("debian-xterm").size() == 2; }));
  EXPECT_EQ(bare.workspace.frontmostApplication(), std::nullopt);

  for (const auto& application : bare.workspace.runningApplications("debian-xterm")) {
    EXPECT_TRUE(bare.workspace.activate(application));
    EXPECT_TRUE(waitUntil([&] {
      const auto front = bare.workspace.frontmostApplication();
      return front && front->isSameProcess(application);
    }));
    EXPECT_EQ(bare.workspace.runningApplications().front().window, application.window);
  }
  const auto first = bare.workspace.frontmostApplication().value();
  EXPECT_FALSE(bare.workspace.hide(first));  // nothing brings a hidden window back here
  EXPECT_EQ(bare.workspace.runningApplications("debian-xterm").size(), 2U);
  EXPECT_TRUE(bare.workspace.terminate(first));
  EXPECT_TRUE(waitUntil([&] { return bare.workspace.runningApplications("debian-xterm").size() == 1; }));
  EXPECT_FALSE(bare.workspace.terminate(first));
  EXPECT_TRUE(bare.handleEvents());
}

TEST_F(ActivationTest, HidesAndQuitsAllWindowsOfAnApplication) {
  const auto editor = startWithWindow({"mousepad"}, "Untitled 1");
  run({"mousepad", "--opening-mode", "window"});
  ASSERT_TRUE(eventually([this] { return windowTitled("Untitled 2") != XCB_NONE; }));
  const auto terminal = startTerminal("terminal");
  const auto remembered = running("org.xfce.mousepad").value();
  EXPECT_TRUE(workspace().hide(remembered));
  EXPECT_TRUE(eventually([this] { return running("org.xfce.mousepad")->isHidden; }));
  EXPECT_FALSE(running("debian-xterm")->isHidden);
  EXPECT_TRUE(workspaceForUser().terminate(remembered));
  EXPECT_TRUE(eventually([&] { return !editor->isRunning(); })) << "also iconified windows";
  EXPECT_TRUE(terminal->isRunning());
}

}  // namespace
}  // namespace rondora::live
