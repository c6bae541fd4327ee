#include <gmock/gmock.h>

#include "desktop/wait.h"
#include "desktop/x_server.h"
#include "live/workspace/workspace_test.h"

namespace rondora::live {
namespace {

class ActivationTest : public WorkspaceTest {
 protected:
  /// An editor with two windows and a terminal, which is active.
  void startEditorAndTerminal() {
    editorProcess_ = startWithWindow({"mousepad"}, "Untitled 1");
    run({"mousepad", "--opening-mode", "window"});
    ASSERT_TRUE(eventually([this] { return windowTitled("Untitled 2") != XCB_NONE; }));
    firstWindow_ = windowTitled("Untitled 1");
    secondWindow_ = windowTitled("Untitled 2");
    ASSERT_TRUE(becomesActive(secondWindow_));
    terminalProcess_ = startTerminal("the terminal");
    terminalWindow_ = windowTitled("the terminal");
  }

  void makeActive(xcb_window_t window) {
    // On a busy machine the window before may answer WM_TAKE_FOCUS so late that it takes the focus back.
    ASSERT_TRUE(waitUntil([&] {
      client_.requestActivation(window);
      return waitUntil([&] { return isActive(window); }, std::chrono::seconds(3));
    }));
    ASSERT_TRUE(becomesActive(window));
  }

  RunningApplication editor() { return running("org.xfce.mousepad").value(); }

  std::unique_ptr<ChildProcess> editorProcess_;
  std::unique_ptr<ChildProcess> terminalProcess_;
  xcb_window_t firstWindow_ = XCB_NONE;
  xcb_window_t secondWindow_ = XCB_NONE;
  xcb_window_t terminalWindow_ = XCB_NONE;
};

TEST_F(ActivationTest, TakesTheWindowUsedLastAlsoWhereAnotherLiesAbove) {
  startEditorAndTerminal();
  makeActive(firstWindow_);
  makeActive(terminalWindow_);
  run({"wmctrl", "-i", "-r", std::to_string(secondWindow_), "-b", "add,above"});
  ASSERT_TRUE(eventually([this] {
    for (const auto& window : underTest_.windows.windows()) {
      if (window.window == firstWindow_ || window.window == secondWindow_) return window.window == secondWindow_;
    }
    return false;
  }));
  EXPECT_TRUE(workspaceForUser().activate(editor()));
  EXPECT_TRUE(becomesActive(firstWindow_));

  auto remembered = editor();
  remembered.window = secondWindow_;
  EXPECT_TRUE(workspaceForUser().activate(remembered));
  const auto another = startTerminal("another terminal");
  EXPECT_EQ(editor().window, firstWindow_) << "nothing is to be done where the application is active already";
}

TEST_F(ActivationTest, AWindowThatIsGoneIsReplacedAndAnApplicationThatIsGoneIsNot) {
  startEditorAndTerminal();
  const auto remembered = editor();
  ASSERT_EQ(remembered.window, secondWindow_);
  client_.requestClose(secondWindow_);
  ASSERT_TRUE(eventually([this] { return windowTitled("Untitled 2") == XCB_NONE; }));
  makeActive(terminalWindow_);
  EXPECT_TRUE(workspaceForUser().activate(remembered));
  EXPECT_TRUE(becomesActive(firstWindow_));

  client_.requestClose(firstWindow_);
  ASSERT_TRUE(eventually([this] { return !running("org.xfce.mousepad"); }));
  EXPECT_FALSE(workspaceForUser().activate(remembered));
}

TEST_F(ActivationTest, TellsOfEachApplicationThatBecomesActiveOnce) {
  startEditorAndTerminal();
  std::vector<std::string> activated;
  auto subscription = workspace().onDidActivateApplication([&activated](const RunningApplication& application) {
    activated.push_back(application.bundleIdentifier.value_or("none"));
  });
  const auto hasToldOf = [&](std::size_t count) { return eventually([&] { return activated.size() >= count; }); };
  makeActive(firstWindow_);
  EXPECT_TRUE(hasToldOf(1));
  makeActive(secondWindow_);
  makeActive(terminalWindow_);
  EXPECT_TRUE(hasToldOf(2));
  makeActive(firstWindow_);
  EXPECT_TRUE(hasToldOf(3));
  const auto another = startTerminal("another terminal");
  EXPECT_TRUE(hasToldOf(4));
  EXPECT_THAT(activated,
              testing::ElementsAre("org.xfce.mousepad", "debian-xterm", "org.xfce.mousepad", "debian-xterm"));
}

TEST_F(ActivationTest, WorksWithoutAWindowManager) {
  const XServer server;
  auto environment = desktop().environment();
  environment["DISPLAY"] = server.display();
  const ChildProcess one({"xterm", "-T", "one", "-e", "cat"}, environment);
  const ChildProcess two({"xterm", "-T", "two", "-e", "cat"}, environment);
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
  EXPECT_TRUE(bare.handleEvents());
}

}  // namespace
}  // namespace rondora::live
