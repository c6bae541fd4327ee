#include <algorithm>
#include <random>
#include <stop_token>
#include <thread>

#include "desktop/key_logger.h"
#include "desktop/wait.h"
#include "platform/linux/x11/typing/xtest_key_poster.h"
#include "x11_test.h"

namespace rondora::live {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t kShiftFlag = 0x20000, kControlFlag = 0x40000, kOptionFlag = 0x80000, kCommandFlag = 0x100000;
constexpr std::uint16_t kShiftMask = 1, kLockMask = 2, kSuperMask = XCB_MOD_MASK_4;
constexpr std::uint16_t kVirtualA = 0, kVirtualC = 8;
constexpr std::uint8_t kAltGr = 108, kC = 54;

class KeyPosterTest : public X11Test {
 protected:
  KeyPosterTest() : logger_(server_.display(), "Logger") {
    waitUntil([&] {
      logger_.takeFocus();
      return user_.inputFocus() == logger_.window();
    });
  }

  bool press(std::uint16_t keyCode, std::uint64_t flags) { return send(keyCode, flags, true); }
  bool release(std::uint16_t keyCode, std::uint64_t flags) { return send(keyCode, flags, false); }
  bool type(std::uint16_t keyCode, std::uint64_t flags) { return press(keyCode, flags) && release(keyCode, flags); }
  bool send(std::uint16_t keyCode, std::uint64_t flags, bool isDown, std::uint64_t ownFlags = 0) {
    const auto event = poster_.makeKeyEvent(KeyEventSourceState::privateState, keyCode, isDown, {flags, ownFlags});
    if (event) poster_.post(*event, KeyEventTap::session);
    drain();
    return event.has_value();
  }

  /// The logger's keys since the last call, without modifiers: "+38:5", "-38:5" (code and state).
  std::vector<std::string> typed() {
    std::vector<std::string> texts;
    for (const LoggedKey& key : logger_.take()) {
      if (keymap_.isModifierKey(key.code) || key.code == kAltGr) continue;
      texts.push_back((key.isPress ? '+' : '-') + std::to_string(key.code) + ':' + std::to_string(key.state));
    }
    return texts;
  }
  static testing::Matcher<std::vector<std::string>> isOne(int code, int state) {
    const std::string rest = std::to_string(code) + ':' + std::to_string(state);
    return ElementsAre('+' + rest, '-' + rest);
  }
  /// No key is down, neither for applications nor for the XTEST keyboard.
  void expectAtRest() {
    drain();
    EXPECT_TRUE(user_.keyboardIsAtRest());
    EXPECT_TRUE(x11::XTestKeyboard(handle_.get()).readState().synthetic.none());
  }

  KeyLogger logger_;
  x11::XTestKeyPoster poster_{connection_, keymap_, keys_, rawReleases_};
};

struct Layout {
  const char* name;
  const char* option;
  std::uint16_t state;
  /// The text of the A key in that state.
  const char* letter;
};

/// Control and Shift switch the last layout; a keystroke with both must not.
TEST_F(KeyPosterTest, PressesTheKeyOfThatPlaceOnEveryLayout) {
  const Layout layouts[] = {{"us", "", 0, "a"}, {"fr", "", 0, "q"},  {"de", "", 0, "a"},
                            {"ru", "", 0, "ф"}, {"ara", "", 0, "ش"}, {"us,ru", "grp:ctrl_shift_toggle", 1U << 13, "ф"}};
  for (const Layout& layout : layouts) {
    SCOPED_TRACE(layout.name);
    runTool({"setxkbmap", layout.name, "-option", layout.option});
    ASSERT_TRUE(eventually([&] { return keymap_.characters(key::a, layout.state) == layout.letter; }));
    ASSERT_TRUE(type(kVirtualA, 0));
    EXPECT_THAT(typed(), isOne(key::a, 0));
    ASSERT_TRUE(type(kVirtualC, kControlFlag | kShiftFlag | kOptionFlag | kCommandFlag));
    EXPECT_THAT(typed(), isOne(kC, kControlMask | kShiftMask | kAltMask | kSuperMask));
    expectAtRest();
  }
}

TEST_F(KeyPosterTest, MissingModifierIsNeverReplaced) {
  runTool({"setxkbmap", "us", "-option", "altwin:alt_win"});
  ASSERT_TRUE(eventually([&] { return keymap_.masks().command == 0; }));
  EXPECT_FALSE(type(kVirtualC, kCommandFlag));
  EXPECT_THAT(logger_.take(), IsEmpty());
  EXPECT_TRUE(type(kVirtualC, kOptionFlag));
  EXPECT_THAT(typed(), isOne(kC, kAltMask));
  EXPECT_FALSE(type(66, 0)) << "no key has this code";
  EXPECT_FALSE(type(kVirtualC, event_flags::kFunction));
  EXPECT_TRUE(send(123, 0, true, event_flags::kFunction)) << "an arrow always carries the bit";
}

TEST_F(KeyPosterTest, LocksChangeNothingAndStayAsTheyAre) {
  user_.tap(key::capsLock);
  ASSERT_TRUE(type(kVirtualA, 0));
  EXPECT_THAT(typed(), isOne(key::a, 0));
  EXPECT_EQ(user_.keyboardState(), kLockMask);

  user_.tap(key::numLock);
  ASSERT_TRUE(type(kVirtualA, kShiftFlag));
  EXPECT_THAT(typed(), isOne(key::a, kShiftMask | kNumLockMask));
  EXPECT_EQ(user_.keyboardState(), kLockMask | kNumLockMask);
}

TEST_F(KeyPosterTest, HeldKeysAreNotTypedAndStayHeld) {
  runTool({"setxkbmap", "de"});
  ASSERT_TRUE(eventually([&] { return keymap_.characters(key::q, XCB_MOD_MASK_5) == "@"; }));
  const std::uint8_t held[] = {key::control, key::shift, kAltGr, kC};
  for (const std::uint8_t code : held) user_.keyDown(code);
  typed();
  const std::uint16_t state = user_.keyboardState();
  ASSERT_EQ(state, kControlMask | kShiftMask | XCB_MOD_MASK_5);
  ASSERT_TRUE(type(kVirtualC, kShiftFlag));
  EXPECT_THAT(typed(), isOne(kC, kShiftMask)) << "the held key is pressed again";
  EXPECT_EQ(user_.keyboardState(), state);

  for (const std::uint8_t code : held) user_.keyUp(code);
  EXPECT_THAT(typed(), IsEmpty());
  EXPECT_EQ(user_.keyboardState(), 0);
  ASSERT_TRUE(eventually([&] { return x11::XTestKeyboard(handle_.get()).readState().synthetic.none(); }));
  user_.fakeKeyDown(key::control);
  EXPECT_EQ(user_.keyboardState(), kControlMask);
  user_.fakeKeyUp(key::control);
  expectAtRest();
}

TEST_F(KeyPosterTest, StickyModifiersNeitherLeakNorStay) {
  enableStickyKeys();
  user_.tap(key::shift);
  ASSERT_EQ(user_.keyboardState(), kShiftMask);
  user_.keyDown(key::alt);
  ASSERT_TRUE(type(kVirtualC, kControlFlag));
  EXPECT_THAT(typed(), isOne(kC, kControlMask));
  user_.keyUp(key::alt);
  EXPECT_EQ(user_.keyboardState(), 0);
  EXPECT_TRUE(x11::XTestKeyboard(handle_.get()).readState().stickyKeys) << "switched off by two keys at once";
}

TEST_F(KeyPosterTest, NoModifierStaysWhateverTheUserTypes) {
  constexpr std::uint8_t kKeys[] = {key::control, key::shift, key::alt, key::super, kAltGr, key::q};
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (int round = rounds(40); round > 0; --round) {
    std::jthread fingers([this, &kKeys, random = std::mt19937(random())](const std::stop_token& isDone) mutable {
      XClient user(server_.display());
      x11::KeySet down;
      while (!isDone.stop_requested()) {
        const std::uint8_t code = kKeys[random() % std::size(kKeys)];
        down.flip(code);
        down[code] ? user.keyDown(code) : user.keyUp(code);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
      }
      for (const std::uint8_t code : kKeys) user.keyUp(code);
    });
    for (int i = 0; i < 5; ++i) {
      const std::uint64_t flags = random() % 16 << 17;
      ASSERT_TRUE(press(kVirtualC, flags));
      std::this_thread::sleep_for(std::chrono::microseconds(random() % 6000));
      ASSERT_TRUE(release(kVirtualC, flags));
    }
    fingers.request_stop();
    fingers.join();
    ASSERT_TRUE(eventually([&] { return x11::XTestKeyboard(handle_.get()).readState().synthetic.none(); }));
    ASSERT_TRUE(user_.keyboardIsAtRest());
    const auto keys = logger_.take();
    for (const bool isPress : {true, false}) {
      ASSERT_EQ(std::ranges::count_if(keys, [&](auto& key) { return key.code == kC && key.isPress == isPress; }), 5);
    }
  }
}

}  // namespace
}  // namespace rondora::live
