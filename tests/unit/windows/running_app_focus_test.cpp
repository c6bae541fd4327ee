#include "windows/running_app_focus.h"

#include <gmock/gmock.h>

#include "app/action_services.h"
#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint32_t kWindow = 0x01020304;

class RunningAppFocusTest : public ::testing::Test {
 protected:
  RunningAppFocusTest() {
    editor_ = desktop_.workspace.start("editor");
    desktop_.workspace.start("browser");
    pid_ = editor_.processIdentifier;
    desktop_.windowServer.listed = {FakeWindowServer::window(pid_, kWindow)};
  }
  bool focus() {
    const bool succeeded = actions_.runningAppFocus.focus(editor_);
    desktop_.serialQueues.run();
    return succeeded;
  }
  std::string lastLine() const { return desktop_.log.lines.empty() ? "" : desktop_.log.lines.back().text; }
  const std::vector<std::string>& journal() const { return desktop_.accessibility.journal; }

  FakePlatform desktop_;
  ActionServices actions_{desktop_.actionPorts<ActionServices::Ports>(), desktop_.serialQueues.make()};
  RunningApplication editor_;
  std::int32_t pid_ = 0;
};

TEST_F(RunningAppFocusTest, ShowsTheProcessAndMakesItFrontmostThenRaisesItsWindow) {
  desktop_.workspace.hide(pid_);
  editor_.isHidden = true;
  const auto window = desktop_.accessibility.addWindow(pid_, "window", kWindow, false);
  EXPECT_TRUE(actions_.runningAppFocus.focus(editor_));
  EXPECT_THAT(desktop_.windowServer.frontRequests, ElementsAre(FakeWindowServer::FrontRequest{pid_, kWindow, 0x200}));
  EXPECT_EQ(desktop_.workspace.frontmostApplication()->processIdentifier, pid_);
  EXPECT_FALSE(desktop_.workspace.frontmostApplication()->isHidden);
  EXPECT_THAT(journal(), IsEmpty()) << "the caller does not wait for the application";
  desktop_.serialQueues.run();
  EXPECT_THAT(journal(), ElementsAre("window: AXMain=1", "window: AXRaise"));
  EXPECT_EQ(desktop_.accessibility.applicationElement(pid_)->messagingTimeout, 0.25);
  EXPECT_THAT(desktop_.log.lines, IsEmpty());
}

TEST_F(RunningAppFocusTest, TellsTheProcessInTwoRecordsThatTheWindowIsKey) {
  focus();
  const auto& records = desktop_.windowServer.eventRecords;
  ASSERT_EQ(records.size(), 2U);
  for (std::size_t i = 0; i < records.size(); ++i) {
    FrontProcess::EventRecord expected{};
    expected[4] = 0xF8;
    expected[8] = static_cast<std::uint8_t>(i + 1);
    for (std::size_t byte = 32; byte < 48; ++byte) expected[byte] = 0xFF;
    expected[58] = 0x10;
    expected[60] = 0x04;
    expected[61] = 0x03;
    expected[62] = 0x02;
    expected[63] = 0x01;
    EXPECT_EQ(records[i], expected) << i;
  }
  desktop_.windowServer.takesEventRecords = false;
  EXPECT_TRUE(focus());
  EXPECT_EQ(records.size(), 2U);
}

TEST_F(RunningAppFocusTest, SaysWhyAnApplicationCannotBeMadeFrontmost) {
  editor_.bundleIdentifier.reset();
  desktop_.windowServer.frontStatus = -50;
  EXPECT_FALSE(focus());
  EXPECT_EQ(lastLine(), "focus ?: SLPSSetFrontProcess failed -50");
  desktop_.windowServer.lookupStatus = -600;
  EXPECT_FALSE(focus());
  EXPECT_EQ(lastLine(), "focus ?: GetProcessForPID failed -600");
  desktop_.windowServer.listed = std::vector<WindowListEntry>();
  EXPECT_FALSE(focus());
  EXPECT_EQ(lastLine(), "focus ?: no eligible window");
  desktop_.windowServer.isAvailable = false;
  EXPECT_FALSE(focus());
  EXPECT_EQ(lastLine(), "focus ?: SkyLight symbols unavailable");
  EXPECT_THAT(journal(), IsEmpty());
}

TEST(FrontmostWindowID, TakesTheFirstOrdinaryVisibleWindowOfTheProcess) {
  constexpr std::int32_t kPid = 42;
  const WindowListEntry good = FakeWindowServer::window(kPid, 7);
  const auto isEligible = [&good](auto change) {
    WindowListEntry window = good;
    change(window);
    return RunningAppFocus::frontmostWindowID({window}, kPid).has_value();
  };
  EXPECT_FALSE(isEligible([](auto& w) { w.ownerPID = 43; }));
  EXPECT_FALSE(isEligible([](auto& w) { w.layer = 3; }));
  EXPECT_FALSE(isEligible([](auto& w) { w.number.reset(); }));
  EXPECT_FALSE(isEligible([](auto& w) { w.alpha = 0.0; }));
  EXPECT_FALSE(isEligible([](auto& w) { w.alpha = WindowListEntry::Malformed{}; }));
  EXPECT_TRUE(isEligible([](auto& w) { w.alpha = 0.01; }));
  EXPECT_FALSE(isEligible([](auto& w) { w.bounds.reset(); }));
  EXPECT_FALSE(isEligible([](auto& w) { w.bounds->size = {99.9, 600}; }));
  EXPECT_FALSE(isEligible([](auto& w) { w.bounds->size = {800, 99}; }));
  EXPECT_TRUE(isEligible([](auto& w) { w.bounds->size = {100, 100}; }));

  WindowListEntry palette = good;
  palette.bounds->size = {80, 300};
  EXPECT_EQ(RunningAppFocus::frontmostWindowID(
                {FakeWindowServer::window(43, 1), palette, good, FakeWindowServer::window(kPid, 8)}, kPid),
            7U);
}

TEST_F(RunningAppFocusTest, RestoresTheFirstMinimizedWindowWhenAllAre) {
  desktop_.accessibility.addWindow(pid_, "palette", 1, false, "AXFloatingWindow");
  desktop_.accessibility.addWindow(pid_, "silent", 2, std::nullopt);
  desktop_.accessibility.addWindow(pid_, "first", 3, true);
  desktop_.accessibility.addWindow(pid_, "second", kWindow, true);
  focus();
  EXPECT_EQ(lastLine(), "focus editor: restoring minimized window");
  EXPECT_THAT(journal(), ElementsAre("first: AXMinimized=0", "first: AXMain=1", "first: AXRaise"));
}

TEST_F(RunningAppFocusTest, PrefersAnOpenWindowToAMinimizedTarget) {
  desktop_.accessibility.addWindow(pid_, "target", kWindow, true);
  desktop_.accessibility.addWindow(pid_, "open", 3, false);
  focus();
  EXPECT_THAT(journal(), ElementsAre("open: AXMain=1", "open: AXRaise"));
}

TEST_F(RunningAppFocusTest, KeepsAMinimizedDialogThatIsTheOnlyWindow) {
  desktop_.accessibility.addWindow(pid_, "dialog", kWindow, true, "AXDialog");
  focus();
  EXPECT_THAT(journal(), ElementsAre("dialog: AXMain=1", "dialog: AXRaise"));
}

TEST_F(RunningAppFocusTest, FindsAWindowThatTheApplicationDoesNotList) {
  desktop_.accessibility.addWindow(pid_, "numberless", 0, false);
  desktop_.accessibility.addUnlistedWindow("unlisted", kWindow, false);
  focus();
  EXPECT_THAT(journal(), ElementsAre("unlisted: AXMain=1", "unlisted: AXRaise"));
}

TEST_F(RunningAppFocusTest, GoesToTheWindowsSpaceWhenItIsNotFoundOrRefusesToRise) {
  desktop_.windowServer.spacesOfWindows[kWindow] = {30};
  desktop_.windowServer.displays = std::vector<DisplaySpaces>{{{10, 20, 30}, 20}};
  focus();
  EXPECT_EQ(lastLine(), "focus editor: switching space by 1 step(s) via shortcut");
  desktop_.log.lines.clear();
  desktop_.accessibility.addWindow(pid_, "window", kWindow, false)->refusedActions = {"AXRaise"};
  focus();
  EXPECT_EQ(lastLine(), "focus editor: switching space by 1 step(s) via shortcut");
}

TEST_F(RunningAppFocusTest, WithoutThePermissionTheApplicationStillComesForward) {
  desktop_.permissions.trusted = false;
  desktop_.accessibility.addWindow(pid_, "window", kWindow, false);
  EXPECT_TRUE(focus());
  EXPECT_EQ(desktop_.workspace.frontmostApplication()->processIdentifier, pid_);
  EXPECT_THAT(journal(), IsEmpty());
  EXPECT_EQ(lastLine(), "focus editor: AX not trusted, skip raise");
}

}  // namespace
}  // namespace rondora
