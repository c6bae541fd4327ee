#include "platform/linux/x11/typing/synthetic_typing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>

#include "unit/x11/server_model.h"

namespace rondora::x11 {
namespace {

constexpr std::uint8_t kLockMask = 0x02, kNumMask = 0x10;
constexpr xcb_keycode_t kKeys[] = {kControlL, kControlR, kShiftL,  kShiftR, kAltL, kAltGr,
                                   kSuperL,   kCapsLock, kNumLock, kA,      kB};
constexpr xcb_keycode_t kTypedKeys[] = {kA, kA, kB, kB, kShiftR, kSuperL, kCapsLock};
constexpr std::uint8_t kMasks[] = {0x04, 0x08, 0x01, 0x40};  // indexed by Modifier

/// One user at two keyboards and one program that types; beside it the same user without the program.
class Encounter {
 public:
  Encounter(unsigned seed, int nervousness) : random_(seed), nervousness_(nervousness) {
    server_.meanwhile = [this] {
      if (below(100) < nervousness_) userActs();
    };
  }

  void play() {
    for (int keystroke = 0; keystroke < 3; ++keystroke) {
      userActsSeveralTimes();
      type();
      notice();
      userActsSeveralTimes();
      notice();
    }
    letEverythingGo();
    notice();
    checkAtRest("at the end");
    EXPECT_TRUE(server_.logical().none());
    EXPECT_TRUE(server_.synthetic().none());
    EXPECT_EQ(server_.heldModifiers(), 0);
  }

 private:
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
  template <class List>
  auto oneOf(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
  }

  void userActs() {
    const xcb_keycode_t key = oneOf(kKeys);
    // No lock key goes down between reading and setting the locks, and the user never holds two of a kind.
    const bool isLock = ServerModel::isLock(key);
    if (isLock && (typesLock_ || !server_.locksMayMove)) return;
    userMoves(isLock ? 0 : static_cast<std::size_t>(below(ServerModel::kKeyboards)), key);
  }
  void userMoves(std::size_t keyboard, xcb_keycode_t key) {
    moved_.set(key);
    if (!server_.isDown(keyboard, key)) pressed_.set(key);
    const bool wasDown = server_.logical()[key];
    server_.userMoves(keyboard, key);
    alone_.userMoves(keyboard, key);
    if (wasDown && !server_.logical()[key]) ++unnoticedReleases_;
  }
  void userActsSeveralTimes() {
    for (int i = below(5); i > 0; --i) userActs();
  }
  void letEverythingGo() {
    nervousness_ = 0;
    for (std::size_t keyboard = 0; keyboard < ServerModel::kKeyboards; ++keyboard) {
      for (const xcb_keycode_t key : kKeys) {
        if (server_.isDown(keyboard, key)) userMoves(keyboard, key);
      }
    }
  }
  /// Notifies the program of each release while it holds a key for the user.
  void notice() {
    while (unnoticedReleases_ > 0 && typing_.isHolding()) {
      unnoticedReleases_ = 0;
      typing_.settle();
    }
    unnoticedReleases_ = 0;
    checkAtRest("after a keystroke");
  }

  void type() {
    const SyntheticKeystroke keystroke{oneOf(kTypedKeys), ModifierSet(static_cast<unsigned long>(below(16))), 0};
    const bool isHeld = server_.physical()[keystroke.key];
    const bool isLock = ServerModel::isLock(keystroke.key);
    if (isLock && isHeld) return;
    typesLock_ = isLock;
    server_.events.clear();
    moved_.reset();
    pressed_.reset();
    typing_.down(keys_, keystroke);
    const bool isDisturbed = (moved_ & keys_->holding).any();
    server_.locksMayMove = true;
    userActsSeveralTimes();
    unnoticedReleases_ = 0;
    typing_.up();
    server_.locksMayMove = true;
    const bool isModifier = keys_->holding[keystroke.key];
    if (isLock) alone_.setLocks(kLockMask, alone_.locked() ^ kLockMask);  // the user alone would have typed it
    typesLock_ = false;
    if (moved_[keystroke.key]) return;
    if (!isModifier || !isHeld) checkCount(keystroke.key);
    if (!isDisturbed) checkState(keystroke, true);
    // Releasing the keys held before changes nothing.
    if (!isModifier && (pressed_ & keys_->holding).none()) checkState(keystroke, false);
  }
  bool isOf(const ServerModel::Event& event, xcb_keycode_t key, bool isPress) {
    return event.key == key && event.isPress == isPress && event.isSeen;
  }
  void checkCount(xcb_keycode_t key) {
    for (const bool isPress : {true, false}) {
      EXPECT_EQ(std::count_if(server_.events.begin(), server_.events.end(),
                              [&](const auto& event) { return isOf(event, key, isPress); }),
                1);
    }
  }
  void checkState(const SyntheticKeystroke& keystroke, bool isPress) {
    std::uint8_t wanted = 0;
    for (std::size_t i = 0; i < kModifierCount; ++i) wanted |= keystroke.modifiers[i] ? kMasks[i] : std::uint8_t{0};
    const auto event = std::find_if(server_.events.begin(), server_.events.end(),
                                    [&](const auto& each) { return isOf(each, keystroke.key, isPress); });
    ASSERT_NE(event, server_.events.end());
    EXPECT_EQ(event->state & ~kNumMask, wanted) << (isPress ? "at the press" : "at the release");
  }

  /// Call it once the program has been notified of all that the user did.
  void checkAtRest(const char* when) {
    SCOPED_TRACE(when);
    const KeySet physical = server_.physical();
    EXPECT_EQ((server_.logical() & ~physical), KeySet()) << "a key is stuck";
    EXPECT_EQ((server_.synthetic() & ~physical), KeySet()) << "the XTEST keyboard holds a key without reason";
    const KeySet lost = alone_.logical() & ~server_.logical() & keys_->holding & ~keys_->locking;
    EXPECT_EQ(lost, KeySet()) << "a modifier is dead although the user holds it";
    const bool locksAreSettled = (physical & keys_->locking).none();
    EXPECT_TRUE(!locksAreSettled || server_.locked() == alone_.locked()) << "a lock is not the user's";
  }

  std::mt19937 random_;
  int nervousness_;  // percent
  std::shared_ptr<const ModifierKeys> keys_ = std::make_shared<ModifierKeys>(ServerModel::modifierKeys());
  ServerModel server_;
  ServerModel alone_;
  SyntheticTyping typing_{server_};
  bool typesLock_ = false;
  /// Since the keystroke began.
  KeySet moved_;
  KeySet pressed_;
  int unnoticedReleases_ = 0;
};

TEST(SyntheticTypingTest, RestoresTheUsersKeyboardState) {
  constexpr unsigned kSeeds = 10000;
  for (unsigned seed = 0; seed < kSeeds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    constexpr int kNervousness[] = {0, 2, 10, 40};
    Encounter(seed, kNervousness[seed % std::size(kNervousness)]).play();
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace rondora::x11
