#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <tuple>
#include <vector>

#include "doubles/fake_keyboard.h"
#include "doubles/virtual_time.h"
#include "input/recording/hotkey_recorder.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using Key = FakeKeyboard::Key;

constexpr std::uint16_t kA = 0, kB = 11;

class HotkeyRecordingTest : public testing::Test {
 protected:
  HotkeyRecordingTest() {
    engine.onCaptured = [this](auto... captured) { captures.emplace_back(captured...); };
    engine.onEscape = [this] { ++escapes; };
    recorder.onRecorded = [this](const HotkeyConfig& hotkey) {
      EXPECT_FALSE(keyboard.isTaken()) << "the keyboard is free again before anyone hears of the hotkey";
      recorded.push_back(hotkey);
    };
    recorder.onCancelled = [this] { ++cancellations; };
  }

  /// What a recording of these keys yields; nothing when it was cancelled.
  std::optional<HotkeyConfig> record(std::initializer_list<std::uint16_t> keys) {
    recorded.clear();
    EXPECT_TRUE(recorder.start());
    keyboard.pressAll(keys);
    keyboard.releaseAll(keys);
    time.runUntilIdle();
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_FALSE(keyboard.isTaken());
    return recorded.empty() ? std::nullopt : std::optional(recorded.back());
  }

  VirtualTime time;
  FakeKeyboard keyboard{[] { return true; }};
  HotkeyCaptureEngine engine{keyboard, time};
  std::vector<std::tuple<std::int64_t, std::int64_t, bool>> captures;
  int escapes = 0;
  HotkeyRecorder recorder{{keyboard, keyboard, time}};
  std::vector<HotkeyConfig> recorded;
  int cancellations = 0;
};

TEST_F(HotkeyRecordingTest, CapturesOneKeyOfEachStart) {
  std::vector<bool> states;
  const auto observer = engine.isRecording().subscribe([&](bool isRecording) { states.push_back(isRecording); });
  engine.start();
  const auto* present = engine.recorder();
  engine.start();
  EXPECT_EQ(engine.recorder(), present) << "a second start does nothing";
  keyboard.pressAll({Key::kFnKey, Key::kControlKey, kA});
  keyboard.pressAll({kB, Key::kEscapeKey});
  EXPECT_TRUE(captures.empty()) << "reported by the main queue";
  time.runUntilIdle();
  constexpr std::int64_t kFnControl = carbon::kFunction | carbon::kControl;
  EXPECT_THAT(captures, ElementsAre(std::tuple(kA, kFnControl, true)));
  EXPECT_EQ(escapes, 0);
  EXPECT_THAT(states, ElementsAre(false, true, false));
  EXPECT_EQ(keyboard.monitorCount(), 0U) << "a further key reaches the interface";

  keyboard.releaseAll({Key::kFnKey, Key::kControlKey});
  engine.start();
  keyboard.pressAll({Key::kEscapeKey, kB});
  time.runUntilIdle();
  EXPECT_EQ(escapes, 1);
  EXPECT_EQ(captures.size(), 1U) << "Escape is never captured, nor what follows it";

  engine.start();
  keyboard.press(kB);
  engine.stop();
  time.runUntilIdle();
  EXPECT_EQ(captures.size(), 1U) << "a stopped recording reports nothing";
}

TEST_F(HotkeyRecordingTest, EndsAtOnceWithoutMonitorsAndOutlivesItsOwner) {
  struct NoMonitors final : EventMonitors {
    Subscription addLocalMonitor(std::uint32_t /*mask*/, Handler /*handler*/) override { return {}; }
    std::uint64_t currentModifierFlags() const override { return 0; }
  } none;
  HotkeyCaptureEngine deaf(none, time);
  deaf.start();
  EXPECT_FALSE(deaf.isRecording().value());
  EXPECT_EQ(deaf.recorder(), nullptr);

  auto shortLived = std::make_unique<HotkeyCaptureEngine>(keyboard, time);
  shortLived->onCaptured = [&](auto...) { shortLived.reset(); };
  shortLived->start();
  keyboard.tap(kA);
  time.runUntilIdle();
  EXPECT_EQ(shortLived, nullptr);
  EXPECT_EQ(keyboard.monitorCount(), 0U);
}

TEST_F(HotkeyRecordingTest, ObserversSeeTheEndFirstAndMayStopAtOnce) {
  const HotkeyRecordingEventTap* atEnd = nullptr;
  std::size_t monitorsAtEnd = 0;
  bool stopsAtOnce = false;
  const auto observer = engine.isRecording().subscribe([&](bool isRecording) {
    if (isRecording && stopsAtOnce) engine.stop();
    if (!isRecording) atEnd = engine.recorder(), monitorsAtEnd = keyboard.monitorCount();
  });
  engine.start();
  engine.stop();
  EXPECT_EQ(atEnd, nullptr);
  EXPECT_GT(monitorsAtEnd, 0U) << "stopped after the observers know";
  stopsAtOnce = true;
  engine.start();
  EXPECT_EQ(engine.recorder(), nullptr);
  EXPECT_EQ(keyboard.monitorCount(), 0U);
}

TEST_F(HotkeyRecordingTest, RecordsCombinationsAndFnAlone) {
  EXPECT_EQ(record({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey}),
            (HotkeyConfig{Key::kSpaceKey, carbon::kControl | carbon::kOption}));
  EXPECT_EQ(record({Key::kFnKey, kA}), (HotkeyConfig{kA, carbon::kFunction}));
  EXPECT_EQ(record({Key::kFnKey}), (HotkeyConfig{kFnKeyCode, 0}));
  EXPECT_EQ(record({Key::kFnKey, Key::kEscapeKey}), std::nullopt);
  EXPECT_EQ(cancellations, 1);
  ASSERT_TRUE(recorder.start());
  keyboard.pressAll({Key::kFnKey, Key::kShiftKey});
  EXPECT_EQ(recorder.heldModifiers(), carbon::kFunction | carbon::kShift);
  keyboard.releaseAll({Key::kShiftKey, Key::kFnKey});
  time.runUntilIdle();
  EXPECT_TRUE(recorder.isRecording()) << "Fn was not held alone";
}

TEST_F(HotkeyRecordingTest, HearsLiveHotkeysAndGivesTheKeyboardBackHoweverItEnds) {
  int hotkeys = 0;
  const auto handler = keyboard.installEventHandler([&](const HotKeyEvent*) { return ++hotkeys; });
  const auto registration = keyboard.registerEventHotKey(Key::kSpaceKey, carbon::kControl, {});
  EXPECT_EQ(record({Key::kControlKey, Key::kSpaceKey}), (HotkeyConfig{Key::kSpaceKey, carbon::kControl}));
  EXPECT_EQ(hotkeys, 0);
  keyboard.pressAll({Key::kControlKey, Key::kSpaceKey});
  EXPECT_EQ(hotkeys, 1);

  ASSERT_TRUE(recorder.start());
  keyboard.loseKeyboard();
  EXPECT_FALSE(recorder.isRecording());
  EXPECT_EQ(cancellations, 1);
  ASSERT_TRUE(recorder.start());
  recorder.stop();
  EXPECT_FALSE(keyboard.isTaken());
  EXPECT_EQ(keyboard.monitorCount(), 0U);
  keyboard.isHeldByOther = true;
  EXPECT_FALSE(recorder.start());
  EXPECT_EQ(cancellations, 1) << "a refusal is no cancellation";
}

TEST(NeedsModifier, KeepsTypingKeysForTyping) {
  for (const std::int64_t keyCode : {0, 36, 48, 49, 51, 117, 123}) {
    EXPECT_TRUE(needsModifier({keyCode, 0})) << keyCode;
    EXPECT_TRUE(needsModifier({keyCode, carbon::kShift})) << keyCode;
    EXPECT_FALSE(needsModifier({keyCode, carbon::kCommand})) << keyCode;
  }
  for (const std::int64_t keyCode : {122, 90, 63}) EXPECT_FALSE(needsModifier({keyCode, 0})) << keyCode;
}

}  // namespace
}  // namespace rondora
