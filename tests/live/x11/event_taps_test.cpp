#include "platform/linux/x11/keyboard/x11_recording_keyboard.h"
#include "x11_test.h"

namespace rondora::live {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint8_t kMenuKey = 135;
constexpr std::uint16_t kSuperMask = XCB_MOD_MASK_4;

class EventTapsTest : public X11Test {
 protected:
  using X11Test::X11Test;
  void SetUp() override { other_.takeFocus(); }

  /// A tap of Super+Tab and Fn+N, and of Fn alone if it `swallowsFn`, in place of an earlier one.
  void startTap(bool swallowsFn) {
    endTap();
    const TapKey keys[] = {{48, carbon::kCommand}, {45, carbon::kFunction}, {48, carbon::kCommand | carbon::kFunction}};
    tap_ = eventTaps_.create(0x1C00, keys, [this, swallowsFn](auto type, auto key, auto flags) {
      const bool isBound = (key == 48 && flags == event_flags::kCommand) ||
                           (key == 45 && flags == event_flags::kFunction) || (swallowsFn && type == 12);
      if (isBound) tapped_ += std::to_string(type) + ":" + std::to_string(key) + " ";
      return isBound ? TapVerdict::swallow : TapVerdict::pass;
    });
    source_ = tap_->addToRunLoop();
    tap_->enable(true);
  }
  void endTap() {
    source_.reset();
    tap_.reset();
  }
  std::string tapped() {
    drain();
    return std::exchange(tapped_, {});
  }
  /// The keys that the focused client received: "+38 -38".
  std::string typed() {
    drain();
    return other_.keys();
  }
  void tapTab() {
    user_.keyDown(key::super);
    user_.tap(key::tab);
    user_.keyUp(key::super);
  }
  void holdFn() {
    user_.keyDown(kMenuKey);
    ASSERT_TRUE(eventually([&] { return !user_.isKeyDown(kMenuKey); })) << "handed over";
  }

  Bystander other_{server_.display()};
  std::string tapped_;
  std::unique_ptr<EventTap> tap_;
  Subscription source_;
};

TEST_F(EventTapsTest, WinsItsKeysFromAWindowManagerAndTakesThemBack) {
  Bystander manager(server_.display());
  ASSERT_TRUE(manager.grabKey(key::tab, kSuperMask));
  startTap(false);
  EXPECT_TRUE(tap_->receives({48, carbon::kCommand}));
  typed();
  tapTab();
  EXPECT_EQ(tapped(), "10:48 11:48 ");
  manager.ungrabKey(key::tab, kSuperMask);
  ASSERT_TRUE(manager.grabKey(key::tab, kSuperMask));
  tapTab();
  EXPECT_EQ(tapped(), "") << "the newest grab wins";
  tap_->retake();
  drain();
  tapTab();
  EXPECT_EQ(tapped(), "10:48 11:48 ");
  EXPECT_EQ(typed(), "+133 -133 +133 -133 +133 -133 ");
  endTap();
  drain();
  manager.keys();
  tapTab();
  EXPECT_EQ(manager.keys(), "+23 -23 ");
}

TEST_F(EventTapsTest, TypesOtherKeysAsIfFnWereNotHeld) {
  startTap(true);
  holdFn();
  EXPECT_EQ(keymap_.heldEventFlags(), event_flags::kFunction);
  user_.tap(key::a);
  user_.keyDown(key::q);
  user_.tap(key::n);
  user_.keyUp(key::q);
  user_.keyUp(kMenuKey);
  EXPECT_EQ(tapped(), "12:63 10:45 11:45 12:63 ");
  EXPECT_EQ(keymap_.heldEventFlags(), 0U);
  user_.tap(key::n);
  EXPECT_EQ(typed(), "+38 -38 +24 -24 +57 -57 ");
  user_.keyDown(kMenuKey);
  openPanel().reset();
  user_.tap(key::a);
  user_.keyUp(kMenuKey);
  EXPECT_EQ(typed(), "+38 -38 ") << "Fn outlasts the ring";
  // Keys that precede the handover, one of them already down.
  user_.keyDown(key::a);
  user_.keyDown(kMenuKey);
  user_.keyUp(key::a);
  user_.tap(key::t);
  user_.keyDown(key::q);
  EXPECT_TRUE(eventually([&] { return !user_.isKeyDown(kMenuKey); }));
  user_.keyUp(key::q);
  drain();
  user_.keyUp(kMenuKey);
  EXPECT_EQ(typed(), "+38 -38 +28 -28 +24 -24 ");
  EXPECT_EQ(tapped(), "12:63 12:63 12:63 12:63 ");
  user_.tap(key::n);
  tapTab();
  EXPECT_EQ(typed() + tapped(), "+57 -57 +133 -133 10:48 11:48 ");
  EXPECT_TRUE(eventually([&] { return user_.keyboardIsAtRest() && user_.nothingIsGrabbed(); }));
}

TEST_F(EventTapsTest, FnStaysHeldWhileTheTapIsMadeAnew) {
  startTap(false);
  EXPECT_FALSE(registerHotkey(63, carbon::kCommand)) << "the tap takes Fn with any modifiers";
  int changes = 0;
  const auto observer = keymap_.onHeldModifiersChanged([&](auto...) { return ++changes == 0; });
  holdFn();
  startTap(false);
  endTap();
  drain();
  startTap(false);
  EXPECT_EQ(keymap_.heldEventFlags(), event_flags::kFunction);
  user_.tap(key::n);
  EXPECT_EQ(tapped() + typed(), "10:45 11:45 ");
  EXPECT_EQ(changes, 1);
  // Before the program knows that Fn is up its grab of N receives the key.
  user_.keyUp(kMenuKey);
  user_.keyDown(key::n);
  drain();
  user_.keyUp(key::n);
  user_.tap(key::n);
  EXPECT_EQ(tapped() + typed(), "+57 -57 +57 -57 ");
  EXPECT_EQ(changes, 2);
  holdFn();
  endTap();
  user_.tap(key::n);
  user_.keyUp(kMenuKey);
  EXPECT_EQ(tapped() + typed(), "+57 -57 ");
  EXPECT_EQ(keymap_.heldEventFlags(), 0U);
}

TEST_F(EventTapsTest, ReleaseOfFnDuringARingIsSeen) {
  startTap(false);
  holdFn();
  const auto panel = openPanel();
  user_.keyUp(kMenuKey);
  EXPECT_TRUE(eventually([&] { return keymap_.heldEventFlags() == 0; }));
  user_.tap(key::a);
  EXPECT_EQ(typed(), "");
}

class RepeatingFnTest : public EventTapsTest {
 protected:
  RepeatingFnTest() : EventTapsTest({"-ardelay", "100", "-arinterval", "10"}) {}
};

TEST_F(RepeatingFnTest, HeldFnDoesNotRepeat) {
  startTap(true);
  holdFn();
  user_.letServerRun(std::chrono::milliseconds(300));
  EXPECT_EQ(tapped(), "12:63 ");
  EXPECT_TRUE(user_.keyboardIsFree());
  user_.keyUp(kMenuKey);
  EXPECT_EQ(tapped() + typed(), "12:63 ");
}

TEST_F(EventTapsTest, TypesAMenuKeyThatIsTappedAloneAndUnbound) {
  startTap(false);
  user_.tap(kMenuKey);
  EXPECT_EQ(typed(), "+135 -135 ");
  holdFn();
  user_.tap(key::n);
  user_.keyUp(kMenuKey);
  EXPECT_EQ(tapped() + typed(), "10:45 11:45 ");
}

TEST_F(EventTapsTest, SecureInputIsAnotherClientsGrab) {
  startTap(true);
  EXPECT_FALSE(eventTaps_.isEnabled());
  ASSERT_TRUE(other_.grabKeyboard());
  EXPECT_TRUE(eventTaps_.isEnabled());
  other_.ungrab();
  EXPECT_FALSE(eventTaps_.isEnabled());
  user_.keyDown(key::super);
  user_.keyDown(key::tab);
  EXPECT_FALSE(eventTaps_.isEnabled()) << "the tap's own grab, whose event is still to come";
  EXPECT_EQ(tapped(), "10:48 ");
  EXPECT_FALSE(eventTaps_.isEnabled()) << "the tap's own grab";
  auto panel = openPanel();
  EXPECT_TRUE(keys_.isXi2GrabActive() && !user_.keyboardIsFree()) << "the overlay has it at once";
  EXPECT_FALSE(eventTaps_.isEnabled());
  user_.keyUp(key::tab);
  panel.reset();
  user_.keyUp(key::super);
  drain();
  EXPECT_TRUE(user_.nothingIsGrabbed());
}

TEST_F(EventTapsTest, OverlayThatFailsLeavesNoGrabOfTheRecordingBefore) {
  startTap(true);
  x11::X11RecordingKeyboard recorder(connection_, keys_, rawReleases_);
  user_.keyDown(key::super);
  user_.keyDown(key::tab);
  drain();
  const auto recording = recorder.take({});
  user_.keyUp(key::tab);
  user_.keyUp(key::super);
  drain();
  EXPECT_TRUE(recording && !user_.keyboardIsFree());
  openPanel().reset();
  drain();
  EXPECT_TRUE(user_.nothingIsGrabbed());
}

}  // namespace
}  // namespace rondora::live
