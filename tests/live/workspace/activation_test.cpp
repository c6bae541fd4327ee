#include <gmock/gmock.h>

#include "live/workspace/workspace_test.h"
#include "support/wait.h"
#include "support/x_server.h"

namespace rondora::live {
namespace {

using testing::ElementsAre;

/// Counts the requests of all clients to activate a window.
class ActivationRequests {
 public:
  explicit ActivationRequests(const std::string& display)
      : handle_(xcb_connect(display.c_str(), &screen_)), connection_(handle_.get(), screen_, 1) {
    connection_.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    connection_.atom("_NET_ACTIVE_WINDOW");
  }

  int count() {
    // The answer comes after the events that were there before.
    connection_.property32(connection_.root(), connection_.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW);
    while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(handle_.get())}) {
      const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
      const bool isRequest =
          (event->response_type & 0x7F) == XCB_CLIENT_MESSAGE && message.type == connection_.atom("_NET_ACTIVE_WINDOW");
      if (isRequest) ++count_;
    }
    return count_;
  }

 private:
  int screen_ = 0;
  UniqueCPtr<xcb_connection_t, xcb_disconnect> handle_;
  x11::XConnection connection_;
  int count_ = 0;
};

class ActivationTest : public WorkspaceTest {
 protected:
  /// An editor with two windows and a terminal, which is active.
  void startEditorAndTerminal() {
    editor_ = startWithWindow({"mousepad"}, "Untitled 1");
    run({"mousepad", "--opening-mode", "window"});
    ASSERT_TRUE(eventually([this] { return windowTitled("Untitled 2") != XCB_NONE; }));
    firstWindow_ = windowTitled("Untitled 1");
    secondWindow_ = windowTitled("Untitled 2");
    ASSERT_TRUE(becomesActive(secondWindow_));
    terminal_ = startTerminal("the terminal");
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

  std::unique_ptr<ChildProcess> editor_;
  std::unique_ptr<ChildProcess> terminal_;
  xcb_window_t firstWindow_ = XCB_NONE;
  xcb_window_t secondWindow_ = XCB_NONE;
  xcb_window_t terminalWindow_ = XCB_NONE;
};

TEST_F(ActivationTest, UsesTheWindowThatWasActiveLastEvenWhenAnotherOneLiesAboveIt) {
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
  const auto editor = running("org.xfce.mousepad");
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->window, firstWindow_);
  EXPECT_TRUE(workspaceForUser().activate(*editor));
  EXPECT_TRUE(becomesActive(firstWindow_));
}

TEST_F(ActivationTest, AsksForNothingWhenTheApplicationIsActiveAlready) {
  startEditorAndTerminal();
  makeActive(secondWindow_);
  const auto editor = running("org.xfce.mousepad");
  makeActive(firstWindow_);
  ActivationRequests requests(desktop().display());
  EXPECT_TRUE(workspaceForUser().activate(*editor));
  EXPECT_EQ(requests.count(), 0);
  EXPECT_TRUE(isActive(firstWindow_));
  EXPECT_TRUE(workspaceForUser().activate(*running("debian-xterm")));
  EXPECT_TRUE(waitUntil([&] { return requests.count() == 1; }));
}

TEST_F(ActivationTest, RestoresAnIconifiedWindowButOnlyWhenNoneIsOpen) {
  startEditorAndTerminal();
  makeActive(firstWindow_);
  run({"xdotool", "windowminimize", std::to_string(firstWindow_)});
  makeActive(terminalWindow_);
  EXPECT_FALSE(running("org.xfce.mousepad")->isHidden);
  EXPECT_TRUE(workspaceForUser().activate(*running("org.xfce.mousepad")));
  EXPECT_TRUE(becomesActive(secondWindow_));

  run({"xdotool", "windowminimize", std::to_string(secondWindow_)});
  ASSERT_TRUE(eventually([this] { return running("org.xfce.mousepad")->isHidden; }));
  makeActive(terminalWindow_);
  EXPECT_TRUE(workspaceForUser().activate(*running("org.xfce.mousepad")));
  EXPECT_TRUE(becomesActive(secondWindow_));
  EXPECT_FALSE(running("org.xfce.mousepad")->isHidden);
}

TEST_F(ActivationTest, AWindowThatIsGoneIsReplacedAndAnApplicationThatIsGoneIsNot) {
  startEditorAndTerminal();
  auto editor = *running("org.xfce.mousepad");
  ASSERT_EQ(editor.window, secondWindow_);
  client_.requestClose(secondWindow_);
  ASSERT_TRUE(eventually([this] { return windowTitled("Untitled 2") == XCB_NONE; }));
  makeActive(terminalWindow_);
  EXPECT_TRUE(workspaceForUser().activate(editor));
  EXPECT_TRUE(becomesActive(firstWindow_));

  client_.requestClose(firstWindow_);
  ASSERT_TRUE(eventually([this] { return !running("org.xfce.mousepad"); }));
  EXPECT_FALSE(workspaceForUser().activate(editor));
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
  EXPECT_THAT(activated, ElementsAre("org.xfce.mousepad", "debian-xterm", "org.xfce.mousepad", "debian-xterm"));
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
