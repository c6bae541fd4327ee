#include "actions/keystroke_sender.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::IsEmpty;

constexpr std::int64_t kShift = 0x20000;
constexpr std::int64_t kCommand = 0x100000;

class KeystrokeSenderTest : public ::testing::Test {
 protected:
  FakePlatform desktop_;
  FrontmostAppWaiter waiter_{desktop_.workspace, desktop_.time, desktop_.time, desktop_.log};
  KeystrokeSender sender_{{desktop_.permissions, waiter_, desktop_.keyEvents, desktop_.workspace, desktop_.time,
                           desktop_.time, desktop_.log}};
};

TEST_F(KeystrokeSenderTest, PressesHoldsAndReleasesOneKey) {
  desktop_.workspace.start("org.example.editor");
  sender_.perform(8, kCommand, std::nullopt);
  const auto& posted = desktop_.keyEvents.posted;
  ASSERT_EQ(posted.size(), 2U);
  EXPECT_EQ(posted[0].event, (SyntheticKeyEvent{KeyEventSourceState::privateState, 8, true, 0x100000}));
  EXPECT_EQ(posted[1].event, (SyntheticKeyEvent{KeyEventSourceState::privateState, 8, false, 0x100000}));
  EXPECT_EQ(posted[0].tap, KeyEventTap::session);
  EXPECT_EQ(posted[1].tap, KeyEventTap::session);
  EXPECT_NEAR(posted[1].uptime - posted[0].uptime, 0.012, 1e-9);
  EXPECT_TRUE(
      desktop_.log.contains(LogLevel::standard, "keystroke sent: key=8 flags=1048576 front=org.example.editor"));
}

TEST_F(KeystrokeSenderTest, AnEmptyRecordingTypesNothingButKeyZeroWithAModifierDoes) {
  sender_.perform(0, 0, std::nullopt);
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
  EXPECT_THAT(desktop_.log.lines, IsEmpty());
  sender_.perform(0, kCommand, std::nullopt);
  ASSERT_EQ(desktop_.keyEvents.posted.size(), 2U);
  EXPECT_TRUE(desktop_.log.contains(LogLevel::standard, "keystroke sent: key=0 flags=1048576 front=?"));
}

TEST_F(KeystrokeSenderTest, ArrowsAndNavigationKeysCarryTheBitsOfTheirKind) {
  for (const std::int64_t arrow : {123, 124, 125, 126}) EXPECT_EQ(KeystrokeSender::eventFlags(arrow, 0), 0xA00000U);
  for (const std::int64_t key : {115, 116, 117, 119, 121}) {
    EXPECT_EQ(KeystrokeSender::eventFlags(key, kShift), 0x820000U);
  }
  for (const std::int64_t key : {114, 118, 120, 122, 127})
    EXPECT_EQ(KeystrokeSender::eventFlags(key, kShift), 0x20000U);
}

TEST_F(KeystrokeSenderTest, WithoutThePermissionItNeitherWaitsNorTypes) {
  desktop_.permissions.trusted = false;
  const auto editor = desktop_.workspace.start("editor");
  sender_.perform(8, kCommand, editor.processIdentifier);
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
  EXPECT_EQ(desktop_.time.pendingCount(), 0U);
  EXPECT_TRUE(desktop_.log.contains(LogLevel::error, "keystroke skipped: Accessibility permission not granted"));
}

TEST_F(KeystrokeSenderTest, TypesAnywayWhenTheTargetStaysBehind) {
  desktop_.workspace.start("browser");
  sender_.perform(8, kCommand, 4711);
  desktop_.time.advance(0.49);
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
  desktop_.time.advance(0.04);
  EXPECT_EQ(desktop_.keyEvents.posted.size(), 2U);
  EXPECT_EQ(desktop_.log.lines.front().text, "target pid 4711 not frontmost in time, acting anyway");
}

TEST_F(KeystrokeSenderTest, AnOverlayThatWouldTakeTheKeyIsWaitedFor) {
  desktop_.keyEvents.isTakenByOverlay = true;
  sender_.perform(8, kCommand, std::nullopt);
  desktop_.time.advance(10);
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
  desktop_.keyEvents.isTakenByOverlay = false;
  desktop_.time.advance(0.021);
  EXPECT_EQ(desktop_.keyEvents.posted.size(), 2U);
}

TEST_F(KeystrokeSenderTest, AKeyThatCannotBeMadeIsLoggedAndTypesNothing) {
  desktop_.keyEvents.missingKeys = {200};
  const std::pair<std::int64_t, std::int64_t> keystrokes[] = {
      {200, 0}, {-1, 0}, {65536, kCommand}, {8, -1}, {std::numeric_limits<std::int64_t>::min(), 0}};
  for (const auto& [key, modifiers] : keystrokes) {
    sender_.perform(key, modifiers, std::nullopt);
    EXPECT_EQ(desktop_.log.lines.back(),
              (FakeLog::Line{LogLevel::error, "keystroke: failed to create CGEvent for key " + std::to_string(key)}));
  }
  EXPECT_THAT(desktop_.keyEvents.posted, IsEmpty());
}

}  // namespace
}  // namespace rondora
