#include <gmock/gmock.h>

#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::HasSubstr;

class HotkeyEditingTest : public ProgramTest {
 protected:
  HotkeyEditingTest() {
    launchWith({menu("main", {49, kControlOption}), menu("other", {})});
    watch = list.watch([this](const HotkeyRows& present) { rows = present; });
  }

  /// Records these keys for "other"; the ring that they may open stays closed meanwhile.
  void record(std::initializer_list<std::uint16_t> keys) {
    list.toggleRecording(rows.at(1).menuId);
    press(keys);
    release(keys);
    EXPECT_FALSE(rows.at(1).isRecording);
    EXPECT_FALSE(isMenuUp());
  }
  HotkeyConfig saved() { return program.config().current().menus.at(1).hotkey; }

  HotkeyList list = program.windowContents().hotkeys;
  HotkeyRows rows;
  Subscription watch;
};

TEST_F(HotkeyEditingTest, RecordedHotkeyIsSavedAndWorksAtOnce) {
  list.toggleRecording(rows.at(1).menuId);
  EXPECT_TRUE(rows.at(1).isRecording);
  press({Key::kControlKey, Key::kOptionKey});
  EXPECT_EQ(rows.at(1).hotkey, "Ctrl + Alt + …");
  press({kKKey});
  EXPECT_EQ(saved(), (HotkeyConfig{kKKey, kControlOption}));
  EXPECT_EQ(rows.at(1).hotkey, "Ctrl + Alt + K");
  release({kKKey, Key::kOptionKey, Key::kControlKey});
  press({Key::kControlKey, Key::kOptionKey, kKKey});
  EXPECT_EQ(shownMenu(), "other");
  release({kKKey, Key::kOptionKey, Key::kControlKey});
  list.remove(rows.at(1).menuId);
  desktop.time.runUntilIdle();
  EXPECT_FALSE(saved().isAssigned() || rows.at(1).isAssigned);
  EXPECT_FALSE(desktop.keyboard.isRegistered(kKKey, kControlOption));
  EditHistory& history = program.windowContents().settings().history;
  history.undo();
  history.save();
  EXPECT_TRUE(desktop.keyboard.isRegistered(kKKey, kControlOption));
  history.redo();
  history.save();
  EXPECT_FALSE(desktop.keyboard.isRegistered(kKKey, kControlOption));
}

TEST_F(HotkeyEditingTest, LockOfTheScreenEndsTheRecording) {
  list.toggleRecording(rows.at(1).menuId);
  desktop.session.lock();
  EXPECT_FALSE(rows.at(1).isRecording || desktop.keyboard.isTaken());
}

TEST_F(HotkeyEditingTest, SaysWhyAHotkeyIsNotTaken) {
  record({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey});
  EXPECT_THAT(rows.at(1).note, HasSubstr("main"));
  record({kKKey});
  EXPECT_THAT(rows.at(1).note, HasSubstr("K alone"));
  EXPECT_FALSE(saved().isAssigned());
  record({Key::kEscapeKey});
  EXPECT_EQ(rows.at(1).note, "");
  desktop.keyboard.isHeldByOther = true;
  list.toggleRecording(rows.at(1).menuId);
  EXPECT_FALSE(rows.at(1).isRecording);
  EXPECT_THAT(rows.at(1).note, HasSubstr("keyboard"));
  desktop.keyboard.isHeldByOther = false;
  desktop.keyboard.foreignOwners.insert({kKKey, carbon::kControl});
  record({Key::kControlKey, kKKey});
  EXPECT_EQ(saved(), (HotkeyConfig{kKKey, carbon::kControl})) << "it works once the other program has freed it";
  EXPECT_THAT(rows.at(1).note, HasSubstr("already taken by another program"));
}

}  // namespace
}  // namespace rondora
