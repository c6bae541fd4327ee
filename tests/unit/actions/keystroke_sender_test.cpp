#include "actions/keystroke_sender.h"

#include <gmock/gmock.h>

#include <limits>
#include <memory>

#include "doubles/fake_platform.h"
#include "windows/frontmost_app_waiter.h"

namespace rondora {
namespace {

using ::testing::IsEmpty;

constexpr std::int64_t kCommand = 0x100000;

struct Sender {
  FakePlatform desktop_;
  FrontmostAppWaiter waiter_{desktop_.workspace, desktop_.time, desktop_.time, desktop_.log};
  KeystrokeSender sender_{{desktop_.permissions,
                           [this](auto pid, WallTime deadline, auto then) { waiter_.poll(pid, deadline, then); },
                           desktop_.keyEvents, desktop_.workspace, desktop_.time, desktop_.time, desktop_.log}};
};

class KeystrokeSenderTest : public ::testing::Test, protected Sender {};

TEST_F(KeystrokeSenderTest, PressesHoldsAndReleasesOneKey) {
  sender_.perform(8, kCommand, desktop_.workspace.start("org.example.editor").processIdentifier);
  const auto& posted = desktop_.keyEvents.posted;
  ASSERT_EQ(posted.size(), 2U);
  for (const std::size_t i : {0U, 1U}) {
    EXPECT_EQ(posted[i].event, (SyntheticKeyEvent{KeyEventSourceState::privateState, 8, i == 0, 0x100000}));
    EXPECT_EQ(posted[i].tap, KeyEventTap::session);
  }
  EXPECT_NEAR(posted[1].uptime - posted[0].uptime, 0.012, 1e-9);
  EXPECT_TRUE(
      desktop_.log.contains(LogLevel::standard, "keystroke sent: key=8 flags=1048576 front=org.example.editor"));
}

TEST_F(KeystrokeSenderTest, EmptyRecordingTypesNothing) {
  sender_.perform(0, 0, std::nullopt);
  EXPECT_THAT(desktop_.log.lines, IsEmpty());
  sender_.perform(0, kCommand, std::nullopt);
  EXPECT_EQ(desktop_.keyEvents.posted.size(), 2U);
  EXPECT_TRUE(desktop_.log.contains(LogLevel::standard, "keystroke sent: key=0 flags=1048576 front=?"));
}

TEST_F(KeystrokeSenderTest, ArrowsAndNavigationKeysCarryTheirFlags) {
  const std::pair<std::vector<std::int64_t>, std::uint64_t> kinds[] = {
      {{123, 124, 125, 126}, 0xA20000}, {{115, 116, 117, 119, 121}, 0x820000}, {{114, 118, 120, 122, 127}, 0x20000}};
  for (const auto& [keys, flags] : kinds) {
    for (const std::int64_t key : keys) EXPECT_EQ(KeystrokeSender::eventFlags(key, 0x20000), flags) << key;
  }
}

TEST_F(KeystrokeSenderTest, WithoutPermissionTypesNothing) {
  desktop_.permissions.trusted = false;
  const auto editor = desktop_.workspace.start("editor");
  sender_.perform(8, kCommand, editor.processIdentifier);
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
  EXPECT_EQ(desktop_.time.pendingCount(), 0U);
  EXPECT_TRUE(desktop_.log.contains(LogLevel::error, "keystroke skipped: Accessibility permission not granted"));
}

TEST_F(KeystrokeSenderTest, WaitsForTheTargetThenTypesAnyway) {
  const auto& posted = desktop_.keyEvents.posted;
  const auto editor = desktop_.workspace.start("editor");
  desktop_.workspace.leaveAll();
  sender_.perform(8, kCommand, 4711);
  sender_.perform(9, kCommand, editor.processIdentifier);
  desktop_.time.setWallClockBack(3600);
  desktop_.time.advance(0.21);
  desktop_.workspace.bringForward(editor.processIdentifier);
  EXPECT_THAT(posted, IsEmpty());
  desktop_.time.advance(0.03);
  ASSERT_EQ(posted.size(), 2U);
  EXPECT_EQ(posted[0].event.keyCode, 9);
  desktop_.time.advance(0.23);
  EXPECT_EQ(posted.size(), 2U) << "half a second has not passed";
  desktop_.time.advance(0.06);
  EXPECT_EQ(desktop_.log.lines.at(1).text, "target pid 4711 not frontmost in time, acting anyway");
  desktop_.time.advance(2);
  EXPECT_EQ(posted.size(), 4U);
}

TEST(RingBeforeKeystroke, KeyIsTypedIntoTheTargetOrNowhere) {
  const struct {
    const char* ring;
    bool closes, leavesTarget, returnsInTime, isTyped;
  } cases[] = {{"closes", true, false, false, true},
               {"stays open", false, false, false, false},
               {"launches another", true, true, false, false},
               {"returns in time", true, true, true, true}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.ring);
    Sender sender;
    FakePlatform& desktop = sender.desktop_;
    const auto editor = desktop.workspace.start("editor");
    desktop.keyEvents.isTakenByOverlay = true;
    sender.sender_.perform(8, kCommand, editor.processIdentifier);
    desktop.time.setWallClockBack(3600);
    desktop.time.advance(1);
    EXPECT_THAT(desktop.keyEvents.posted, IsEmpty());
    desktop.keyEvents.isTakenByOverlay = !each.closes;
    if (each.leavesTarget) desktop.workspace.start("terminal");
    desktop.time.advance(0.3);
    if (each.returnsInTime) desktop.workspace.bringForward(editor.processIdentifier);
    desktop.time.advance(2);
    desktop.keyEvents.isTakenByOverlay = false;
    desktop.workspace.bringForward(editor.processIdentifier);
    desktop.time.advance(3);
    EXPECT_EQ(desktop.keyEvents.posted.size(), each.isTyped ? 2U : 0U);
    EXPECT_EQ(desktop.time.pendingCount(), 0U);
  }
}

TEST_F(KeystrokeSenderTest, KeyThatTheSystemDoesNotTakeIsTold) {
  desktop_.keyEvents.refusesDown = true;
  EXPECT_EQ(sender_.post(8, 0), ActionFailure{ActionProblem::keysRefused});
  EXPECT_EQ(desktop_.keyEvents.posted.size(), 1U) << "the release comes all the same";
}

TEST_F(KeystrokeSenderTest, ImpossibleKeyIsLoggedAndTypesNothing) {
  desktop_.keyEvents.missingKeys = {200};
  desktop_.keyEvents.missingModifiers = event_flags::kFunction;
  sender_.perform(123, 0, std::nullopt);
  EXPECT_EQ(std::exchange(desktop_.keyEvents.posted, {}).size(), 2U) << "the bit of an arrow key is not a held Fn";
  const std::pair<std::int64_t, std::int64_t> keystrokes[] = {{8, 0x800000},
                                                              {123, 0x800000},
                                                              {200, 0},
                                                              {-1, 0},
                                                              {65536, kCommand},
                                                              {8, -1},
                                                              {std::numeric_limits<std::int64_t>::min(), 0}};
  for (const auto& [key, modifiers] : keystrokes) {
    sender_.perform(key, modifiers, std::nullopt);
    EXPECT_EQ(desktop_.log.lines.back(),
              (FakeLog::Line{LogLevel::error, "keystroke: failed to create CGEvent for key " + std::to_string(key)}));
  }
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
}

TEST(FrontmostAppWaiter, CancelsItsPollsWhenDestroyed) {
  FakePlatform desktop;
  auto waiter = std::make_unique<FrontmostAppWaiter>(desktop.workspace, desktop.time, desktop.time, desktop.log);
  waiter->poll(4711, desktop.time.now() + 0.5, [] { FAIL(); });
  waiter.reset();
  desktop.time.advance(1);
  EXPECT_THAT(desktop.log.lines, IsEmpty());
}

}  // namespace
}  // namespace rondora
