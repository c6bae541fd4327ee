#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

/// Hands that are slow to let go, on a keyboard that repeats fast.
class HeldKeysTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    ASSERT_TRUE(desktop_.outputOf({"xset", "r", "rate", "60", "100"}));
    start(document({menu("Clock", kControlAltSpace, snippetItems("Clock", 12), -15),
                    menu("Four", kControlAltB, snippetItems("Four", 4), -45)}));
  }

  /// Long enough for a key that is down to have been repeated many times.
  void letKeysRepeat() { client_.letServerRun(std::chrono::milliseconds(250)); }

  /// Presses the key that closes the ring, and holds it beyond the modifiers.
  void endWith(std::uint8_t code) {
    client_.keyDown(code);
    EXPECT_TRUE(program_->waitForNoRing());
    releaseChord();
    letKeysRepeat();
    client_.keyUp(code);
  }
};

INSTANTIATE_TEST_SUITE_P(Live, HeldKeysTest, testing::Values(WindowManager::openbox, WindowManager::xfwm4), nameOf);

/// Control goes up first: Alt and Space, which are left, open a menu of the window manager's.
TEST_P(HeldKeysTest, WholeChordIsHeldWhilePointingAndLetGoKeyByKey) {
  for (const std::uint8_t code : {key::control, key::alt, key::space}) client_.keyDown(code);
  ASSERT_TRUE(program_->waitForRing());
  const Capture opened = program_->settledPicture();
  letKeysRepeat();
  EXPECT_TRUE(client_.capture(opened.area) == opened) << "the held key stepped";
  pointTo(0, -kMiddleOfRing);
  for (const std::uint8_t code : {key::control, key::alt, key::space}) {
    client_.keyUp(code);
    EXPECT_TRUE(program_->waitForNoRing());
    letKeysRepeat();
  }
  EXPECT_TRUE(waitForClipboard("Clock 0"));
  expectAtRest();
  EXPECT_EQ(typedText(), "");
}

TEST_P(HeldKeysTest, SteppingKeyIsHeldAndStepsOnce) {
  ASSERT_TRUE(open(key::b));
  const Capture before = program_->settledPicture();
  client_.keyDown(key::b);
  const auto stepped = program_->pictureAfterChange(before);
  ASSERT_TRUE(stepped);
  letKeysRepeat();
  EXPECT_TRUE(client_.capture(stepped->area) == *stepped) << "the held key stepped on";
  client_.keyUp(key::b);
  releaseChord();
  EXPECT_TRUE(waitForClipboard("Four 0"));
  EXPECT_EQ(typedText(), "");
}

TEST_P(HeldKeysTest, KeysThatEndTheRingTypeNothing) {
  ASSERT_TRUE(open());
  endWith(key::digit3);
  EXPECT_TRUE(waitForClipboard("Clock 3"));
  ASSERT_TRUE(open());
  endWith(key::escape);
  expectAtRest();
  EXPECT_EQ(typedText(), "");
}

}  // namespace
}  // namespace rondora::live
