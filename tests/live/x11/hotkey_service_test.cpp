#include "doubles/key_contract.h"
#include "platform/linux/x11/keyboard/key_codes.h"
#include "x11_test.h"

namespace rondora::live {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class HotkeyServiceTest : public X11Test {};

class ChordTest : public X11Test {
 protected:
  using X11Test::X11Test;
  void SetUp() override { ASSERT_TRUE(registerHotkey(kSpace, kControlOption)); }
};

/// A server whose keys repeat fast.
class RepeatingKeysTest : public ChordTest {
 protected:
  RepeatingKeysTest() : ChordTest({"-ardelay", "50", "-arinterval", "10"}) {}

  /// Returns when the server has repeated the held key a few times.
  void letKeysRepeat() {
    user_.letServerRun(std::chrono::milliseconds(120));
    drain();
  }
};

TEST(KeyCodesTest, NamePlacesAndMenuStandsInForFn) {
  EXPECT_EQ(x11::xKeyCode(kSpace), 65);
  for (std::uint32_t code = 0; code < 128; ++code) {
    const auto key = x11::xKeyCode(code);
    EXPECT_TRUE(!key || x11::virtualKeyCode(*key) == code) << code;
  }
  EXPECT_EQ(x11::xKeyCode(63), 135);
  EXPECT_FALSE(x11::xKeyCode(110));
  EXPECT_EQ(x11::xKeyCodeForSending(110), 135);
  EXPECT_EQ(x11::virtualKeyCode(8), KeyEvent::kNoKeyCode);
}

TEST_F(ChordTest, NamesTheKeyboardOptionThatPreventsTheChord) {
  EXPECT_EQ(hotkeys_.optionAgainst(kControlOption), std::nullopt);
  runTool({"setxkbmap", "us,ru", "-option", "grp:ctrl_alt_toggle"});
  EXPECT_TRUE(eventually([&] { return hotkeys_.optionAgainst(kControlOption) == "grp:ctrl_alt_toggle"; }));
  tapChord();
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(ChordTest, ReportsModifiersThatStickyKeysLatched) {
  enableStickyKeys();
  for (const std::uint8_t code : {key::control, key::alt, key::space}) user_.tap(code);
  EXPECT_THAT(reports(), ElementsAre("+1 latched", "-1"));
}

TEST_F(ChordTest, MatchesModifiersExactlyWhateverTheLocksDo) {
  for (const auto& locks :
       std::vector<std::vector<std::uint8_t>>{{}, {key::capsLock}, {key::numLock}, {key::capsLock, key::numLock}}) {
    for (const std::uint8_t lock : locks) user_.tap(lock);
    tapChord();
    EXPECT_THAT(reports(), ElementsAre("+1", "-1"));
    user_.keyDown(key::shift);
    tapChord();
    user_.keyUp(key::shift);
    user_.keyDown(key::control);
    user_.tap(key::space);
    user_.keyUp(key::control);
    EXPECT_THAT(reports(), IsEmpty());
    for (const std::uint8_t lock : locks) user_.tap(lock);
  }
}

TEST_F(HotkeyServiceTest, RefusesKeysThatNoKeyboardHas) {
  EXPECT_FALSE(registerHotkey(110, 0));
  EXPECT_FALSE(registerHotkey(0xFFFFFFFF, 0));
  EXPECT_FALSE(registerHotkey(kSpace, 0x20000)) << "Fn";
  EXPECT_FALSE(registerHotkey(kSpace, 0x80000000));
  EXPECT_TRUE(registerHotkey(kSpace, 0x100 | 0x200 | 0x800 | 0x1000));
}

TEST_F(ChordTest, EndsARegistrationAndKeepsItsTwin) {
  ASSERT_TRUE(registerHotkey(kSpace, kControlOption, 2));
  registrations_.erase(registrations_.begin());
  tapChord();
  EXPECT_THAT(reports(), ElementsAre("+2", "-2"));
  registrations_.clear();
  tapChord();
  EXPECT_THAT(reports(), IsEmpty());
  EXPECT_TRUE(user_.grabKey(key::space, kControlMask | kAltMask));
}

TEST_F(HotkeyServiceTest, ReportsAModifierKeyItselfWhileTheOverlayIsUp) {
  ASSERT_TRUE(registerHotkey(kSuper, 0));
  user_.keyDown(key::super);
  EXPECT_THAT(reports(), ElementsAre("+1"));
  auto panel = openPanel();
  user_.keyUp(key::super);
  user_.tap(key::super);
  EXPECT_THAT(reports(), ElementsAre("-1", "+1", "-1"));
  EXPECT_THAT(keysSeen(), IsEmpty());
}

TEST_F(ChordTest, FollowsModifiersThatMove) {
  int moves = 0;
  const auto observer = hotkeys_.onModifiersMoved([&] { ++moves; });
  runTool({"xmodmap", "-e", "clear mod2", "-e", "clear mod3", "-e", "add mod3 = Num_Lock"});
  ASSERT_TRUE(eventually([&] { return keymap_.masks().numLock == XCB_MOD_MASK_3; }));
  user_.tap(key::numLock);
  tapChord();
  EXPECT_THAT(reports(), ElementsAre("+1", "-1"));
  EXPECT_GE(moves, 1);
  runTool({"xmodmap", "-e", "clear mod1"});
  ASSERT_TRUE(eventually([&] { return keymap_.masks().option == 0; }));
  user_.keyDown(key::control);
  user_.tap(key::space);
  EXPECT_THAT(reports(), IsEmpty()) << "no key sets Alt";
}

class X11KeyBenchTest : public RepeatingKeysTest, public KeyBench {
 protected:
  void SetUp() override {}

  HotkeyService& hotkeys() override { return hotkeys_; }
  EventMonitors& monitors() override { return monitors_; }
  EventTaps& eventTaps() override { return eventTaps_; }
  VirtualTime& time() override { return time_; }
  void press(std::uint16_t key) override {
    user_.keyDown(*x11::xKeyCode(key));
    drain();
  }
  void release(std::uint16_t key) override {
    user_.keyUp(*x11::xKeyCode(key));
    drain();
  }
  void repeat(std::uint16_t /*key*/) override { letKeysRepeat(); }
  void setOverlay(bool isUp) override {
    panel_ = isUp ? openPanel() : nullptr;
    // Without a key event before it the first attempt may name too old a time.
    ASSERT_TRUE(eventually([&] { return !isUp || !user_.nothingIsGrabbed(); }));
    drain();
  }

  std::unique_ptr<OverlayPanel> panel_;
};

TEST_F(X11KeyBenchTest, KeepsTheContractOfTheKeyPorts) {
  for (const KeyStory& story : kKeyStories) {
    EXPECT_EQ(KeyContract(*this).outcomeOf(story), story.outcome) << story.name;
    setOverlay(false);
    for (const int key : {40, 49, 18, 59, 58, 55, 48, 63, 45}) release(static_cast<std::uint16_t>(key));
    EXPECT_TRUE(user_.nothingIsGrabbed());
  }
}

/// Control is released first: Alt and the key remain, a combination that window managers bind.
TEST_F(RepeatingKeysTest, KeyHeldBeyondTheOverlayReachesNoOtherClient) {
  ASSERT_TRUE(registerHotkey(kEscape, 0, 2));
  pressChord();
  reports();
  Bystander other(server_.display());
  other.takeFocus();
  ASSERT_TRUE(other.grabKey(key::space, kAltMask));
  auto panel = openPanel();
  user_.keyUp(key::control);
  panel.reset();
  letKeysRepeat();
  user_.keyUp(key::alt);
  letKeysRepeat();
  EXPECT_THAT(other.eventTypes(), Not(Contains(XCB_KEY_PRESS)));

  user_.tap(key::escape);
  EXPECT_THAT(reports(), ElementsAre("+2", "-2")) << "another key is not held back";
  user_.keyUp(key::space);
  drain();
  EXPECT_TRUE(user_.nothingIsGrabbed());
  other.eventTypes();
  user_.tap(key::space);
  EXPECT_THAT(other.eventTypes(), ElementsAre(XCB_KEY_PRESS, XCB_KEY_RELEASE));
}

TEST_F(HotkeyServiceTest, OwnWindowsKeysMayBeConsumedByMonitors) {
  const xcb_window_t window = coverArea(handle_.get(), {0, 0, 50, 50});
  xcb_set_input_focus(handle_.get(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
  drain();
  int passedOn = 0, seenLater = 0;
  const auto toolkit = connection_.addEventHandler([&](const xcb_generic_event_t& event) {
    passedOn += event.response_type == XCB_KEY_PRESS;
    return false;
  });
  user_.tap(key::q);
  EXPECT_THAT(keysSeen(), ElementsAre("down q", "up q"));
  const auto recorder = monitors_.addLocalMonitor(kKeyDownAndKeyUpMask, [](const KeyEvent&) { return true; });
  const auto later = monitors_.addLocalMonitor(kKeyDownAndKeyUpMask, [&](const KeyEvent&) { return ++seenLater > 0; });
  user_.tap(key::q);
  drain();
  EXPECT_EQ(passedOn, 1);
  EXPECT_EQ(seenLater, 0);
}

TEST_F(ChordTest, SecondKeyBesideAHeldHotkeyIsRecognisedLater) {
  ASSERT_TRUE(registerHotkey(kEscape, kControlOption, 2));
  pressChord();
  user_.keyDown(key::escape);
  user_.keyUp(key::space);
  user_.keyUp(key::escape);  // the grab has ended
  EXPECT_THAT(reports(), ElementsAre("+1", "+2", "-1", "-2"));
  user_.tap(key::escape);
  EXPECT_THAT(reports(), ElementsAre("+2", "-2"));
}

TEST_F(ChordTest, RawReleasesAreDeselectedWhenAllKeysAreUp) {
  pressChord();
  reports();
  openPanel().reset();
  drain();
  releaseChord();
  int genericEvents = 0;
  const auto handler = connection_.addEventHandler([&](const xcb_generic_event_t& event) {
    genericEvents += event.response_type == XCB_GE_GENERIC;
    return false;
  });
  ASSERT_TRUE(eventually([&] {
    genericEvents = 0;
    user_.tap(key::q);
    drain();
    return genericEvents == 0;
  }));
}

}  // namespace
}  // namespace rondora::live
