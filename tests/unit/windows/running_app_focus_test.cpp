#include "windows/running_app_focus.h"

#include <gmock/gmock.h>

#include "app/action_services.h"
#include "doubles/fake_platform.h"
#include "doubles/stories.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint32_t kWindow = 0x01020304;

struct Focus {
  Focus() {
    editor_ = desktop_.workspace.start("editor");
    desktop_.workspace.start("browser");
    pid_ = editor_.processIdentifier;
    desktop_.windowServer.listed = {FakeWindowServer::window(pid_, kWindow)};
  }
  bool focus() {
    const bool succeeded = actions_.runningAppFocus.focus(editor_);
    desktop_.time.runUntilIdle();
    return succeeded;
  }

  FakePlatform desktop_;
  ActionServices actions_{desktop_.actionPorts<ActionServices::Ports>(), desktop_.serialQueue()};
  std::vector<std::string>& journal_ = desktop_.accessibility.journal;
  RunningApplication editor_;
  std::int32_t pid_ = 0;
};

/// The target is the window of number 16909060; reading "journal" empties it.
struct FocusStory : Focus, Story {
  using W = const Words&;

  FocusStory() {
    auto& server = desktop_.windowServer;
    desktop_.accessibility.calls.clock = &desktop_.time;
    actions = {{"window", [this](W w) { addWindow(w); }},
               {"unlisted", [this](W w) { desktop_.accessibility.addUnlistedWindow(w.at(0), kWindow, false); }},
               {"unnamed", [this](W) { editor_.bundleIdentifier.reset(); }},
               {"untrusted", [this](W) { desktop_.permissions.trusted = false; }},
               {"front-status", [&](W w) { server.frontStatus = std::stoi(w.at(0)); }},
               {"lookup-status", [&](W w) { server.lookupStatus = std::stoi(w.at(0)); }},
               {"windowless", [&](W) { server.listed = std::vector<WindowListEntry>(); }},
               {"unavailable", [&](W) { server.isAvailable = false; }},
               {"next-space", [this](W) { moveToNextSpace(); }},
               {"focus", [this](W) { succeeded = focus(); }}};
    observations = {{"succeeded", [this] { return yesOrNo(succeeded); }},
                    {"front", [this] { return *desktop_.workspace.frontmostApplication()->bundleIdentifier; }},
                    {"journal", [this] { return joined(std::exchange(journal_, {})); }},
                    {"log", [this] { return desktop_.log.lines.empty() ? "none" : desktop_.log.lines.back().text; }}};
  }
  void moveToNextSpace() {
    desktop_.windowServer.spacesOfWindows[kWindow] = {30};
    desktop_.windowServer.displays = std::vector<DisplaySpaces>{{{10, 20, 30}, 20}};
  }
  /// Name, number, state and, unless it is a standard window, subrole.
  void addWindow(W w) {
    const auto minimized = w.at(2) == "silent" ? std::nullopt : std::optional(w.at(2) == "minimized");
    const auto window = desktop_.accessibility.addWindow(pid_, w.at(0), static_cast<std::uint32_t>(std::stoul(w.at(1))),
                                                         minimized, w.size() > 3 ? w[3] : "AXStandardWindow");
    if (w.at(2) == "stubborn") window->refusedActions = {"AXRaise"};
    window->hangs = w.at(2) == "hanging";
  }

  bool succeeded = false;
};

class RunningAppFocusTest : public ::testing::Test, protected Focus {};

TEST_F(RunningAppFocusTest, ShowsTheProcessThenRaisesItsWindow) {
  desktop_.workspace.hide(pid_);
  editor_.isHidden = true;
  const auto window = desktop_.accessibility.addWindow(pid_, "window", kWindow, false);
  EXPECT_TRUE(actions_.runningAppFocus.focus(editor_));
  EXPECT_THAT(desktop_.windowServer.frontRequests, ElementsAre(FakeWindowServer::FrontRequest{pid_, kWindow, 0x200}));
  EXPECT_EQ(desktop_.workspace.frontmostApplication()->processIdentifier, pid_);
  EXPECT_FALSE(desktop_.workspace.frontmostApplication()->isHidden);
  EXPECT_THAT(journal_, IsEmpty()) << "the caller does not wait for the application";
  desktop_.time.runUntilIdle();
  EXPECT_THAT(journal_, ElementsAre("window: AXMain=1", "window: AXRaise"));
  EXPECT_EQ(desktop_.accessibility.applicationElement(pid_)->messagingTimeout, 0.25);
  EXPECT_THAT(desktop_.log.lines, IsEmpty());
}

TEST_F(RunningAppFocusTest, PostsTwoKeyWindowRecords) {
  focus();
  const auto& records = desktop_.windowServer.eventRecords;
  ASSERT_EQ(records.size(), 2U);
  for (std::size_t i = 0; i < records.size(); ++i) {
    FrontProcess::EventRecord expected{};
    expected[4] = 0xF8;
    expected[8] = static_cast<std::uint8_t>(i + 1);
    for (std::size_t byte = 32; byte < 48; ++byte) expected[byte] = 0xFF;
    expected[58] = 0x10;
    for (std::uint8_t byte = 1; byte <= 4; ++byte) expected[64U - byte] = byte;
    EXPECT_EQ(records[i], expected) << i;
  }
  desktop_.windowServer.takesEventRecords = false;
  EXPECT_TRUE(focus());
  EXPECT_EQ(records.size(), 2U);
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

TEST(RunningAppFocusStories, PlayAsWritten) { playStories<FocusStory>("focus"); }

}  // namespace
}  // namespace rondora
