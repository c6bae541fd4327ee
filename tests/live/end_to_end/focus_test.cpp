#include "desktop/key_logger.h"
#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

/// An application with several windows, behind the bystander's, and a ring that activates it. If it is not running, or
/// not found, a terminal with its name opens. The opposite item is an application that is not installed.
class FocusTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    desktop_.addApplication("letters", "Letters");
    start(document({menu("Main", kControlAltSpace, {applicationItem("letters"), applicationItem("Stranger")}, -90)}));
  }

  KeyLogger show(WindowLook look) {
    if (look.applicationClass.empty()) look.applicationClass = "Letters";
    KeyLogger window(desktop_.display(), look);
    const bool isManaged =
        waitUntil([&] { return std::ranges::count(client_.clientList(), window.window()) != 0 || !look.type.empty(); });
    EXPECT_TRUE(isManaged) << look.title;
    return window;
  }
  void makeActive(const std::string& title) {
    ASSERT_TRUE(waitUntil([&] { return client_.windowsTitled(title).size() == 1; })) << title;
    client_.requestActivation(client_.windowsTitled(title).front());
    ASSERT_TRUE(waitForActive(title)) << title;
    letProgramSee();
  }
  /// Events come in order: once the program has opened and closed a ring, it has read all earlier ones. (Of two windows
  /// that become active in quick succession it sees only the second.)
  void letProgramSee() {
    holdChord(key::space);
    ASSERT_TRUE(program_->waitForRing());
    client_.tap(key::escape);
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
  }
  /// Chooses the application from the bystander's window.
  void chooseIt(int down = -kMiddleOfRing) {
    makeActive("Bystander");
    choose(0, down);
  }
  /// The window is active and receives the next key.
  void expectKeyboardAt(KeyLogger& window, const std::string& title) {
    EXPECT_TRUE(waitForActive(title));
    EXPECT_TRUE(waitUntil([&] { return client_.inputFocus() == window.window(); })) << title;
    window.take();
    client_.tap(key::a);
    EXPECT_EQ(window.takeUntilReleaseOf(key::a).size(), 2U) << title;
  }

  void run(const std::vector<std::string>& command) { EXPECT_TRUE(desktop_.outputOf(command)) << command.front(); }
  bool isTiling() const { return GetParam() == WindowManager::i3; }
  static std::string named(const std::string& title) { return "[title=\"^" + title + "$\"]"; }
  void moveToSecondDesktop(const std::string& title) {
    if (isTiling()) return run({"i3-msg", named(title), "move", "container", "to", "workspace", "2"});
    run({"wmctrl", "-n", "2"});
    run({"wmctrl", "-F", "-r", title, "-t", "1"});
  }
  /// i3 has no minimized windows; its scratchpad is the closest equivalent.
  void minimize(const std::string& title) {
    if (isTiling()) return run({"i3-msg", named(title), "move", "scratchpad"});
    run({"xdotool", "windowminimize", std::to_string(client_.windowsTitled(title).front())});
  }
};

INSTANTIATE_TEST_SUITE_P(Live, FocusTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::i3), nameOf);

TEST_P(FocusTest, LastUsedWindowIsActivatedAlsoOnAnotherDesktop) {
  KeyLogger older = show({"Older"});
  KeyLogger newer = show({"Newer"});
  makeActive("Newer");
  makeActive("Older");
  run({"wmctrl", "-F", "-r", "Newer", "-b", "add,above"});  // stacking is not the order of use
  chooseIt();
  expectKeyboardAt(older, "Older");
  makeActive("Newer");
  chooseIt();
  expectKeyboardAt(newer, "Newer");

  moveToSecondDesktop("Newer");
  chooseIt();
  expectKeyboardAt(newer, "Newer");
  EXPECT_TRUE(waitUntil([&] {
    return desktop_.outputOf({"wmctrl", "-d"})->find("\n1  *") != std::string::npos;
  })) << "not the second desktop";

  if (!isTiling()) return;
  run({"i3-msg", named("Older"), "layout", "tabbed"});
  makeActive("Older");
  chooseIt();  // from another tab, which hides the window
  expectKeyboardAt(older, "Older");
}

TEST_P(FocusTest, NextActivationByTheUserIsNotUndone) {
  KeyLogger letters = show({"Letters"});
  KeyLogger next = show({.title = "Next", .applicationClass = "Next"});
  for (int round = 0; round < 10; ++round) {
    chooseIt();
    ASSERT_TRUE(waitForActive("Letters"));
    client_.requestActivation(next.window());
    ASSERT_TRUE(waitForActive("Next"));
    client_.letServerRun(std::chrono::milliseconds(200));
    ASSERT_EQ(client_.title(client_.activeWindow()), "Next") << "round " << round;
  }
}

TEST_P(FocusTest, LastUsedOfSeveralProcessesIsActivated) {
  std::vector<std::unique_ptr<ChildProcess>> processes;
  for (const char* title : {"First", "Second"}) {
    processes.push_back(desktop_.start({"xterm", "-name", "Letters", "-class", "Letters", "-T", title, "-e", "cat"}));
    ASSERT_TRUE(waitForActive(title));
  }
  for (const char* title : {"First", "Second", "First"}) {
    makeActive(title);
    chooseIt();
    EXPECT_TRUE(waitForActive(title));
  }
  if (isTiling()) return;
  minimize("First");
  chooseIt();
  EXPECT_TRUE(waitForActive("Second")) << "an open window comes before a minimized one";
}

TEST_P(FocusTest, MinimizedWindowReturnsIfNoneIsOpen) {
  KeyLogger one = show({"One"});
  KeyLogger two = show({"Two"});
  makeActive("One");
  makeActive("Two");
  minimize("Two");
  chooseIt();
  expectKeyboardAt(one, "One");
  minimize("One");
  chooseIt();
  expectKeyboardAt(one, "One");
}

TEST_P(FocusTest, PalettesAndInvisibleWindowsAreTheLastResort) {
  KeyLogger palette = show({.title = "Palette", .width = 60, .height = 60, .isFixed = true});
  chooseIt();
  expectKeyboardAt(palette, "Palette");
  EXPECT_TRUE(std::ranges::any_of(
      program_->logLines(), [](const auto& line) { return line.ends_with("focus letters: no eligible window"); }));
  EXPECT_TRUE(client_.windowsTitled("Letters").empty()) << "opened again";

  KeyLogger usual = show({"Usual"});
  makeActive("Usual");
  KeyLogger clear = show({.title = "Clear", .isFixed = true, .isTransparent = true});
  makeActive("Clear");
  makeActive("Palette");
  KeyLogger dock = show({.title = "Dock", .type = "_NET_WM_WINDOW_TYPE_DOCK"});
  chooseIt();
  expectKeyboardAt(usual, "Usual");

  KeyLogger strange =  // not installed
      show({.title = "Strange", .applicationClass = "Stranger", .width = 60, .height = 60, .isFixed = true});
  chooseIt(kMiddleOfRing);
  expectKeyboardAt(strange, "Strange");
}

}  // namespace
}  // namespace rondora::live
