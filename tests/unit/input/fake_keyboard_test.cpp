#include "doubles/fake_keyboard.h"

#include "doubles/key_contract.h"

namespace rondora {
namespace {

class FakeKeyBench final : public KeyBench {
 public:
  HotkeyService& hotkeys() override { return keyboard_; }
  EventMonitors& monitors() override { return keyboard_; }
  EventTaps& eventTaps() override { return keyboard_.taps; }
  VirtualTime& time() override { return time_; }
  void press(std::uint16_t key) override { act(&FakeKeyboard::press, key); }
  void release(std::uint16_t key) override { act(&FakeKeyboard::release, key); }
  void repeat(std::uint16_t key) override { act(&FakeKeyboard::repeat, key); }
  void setOverlay(bool isUp) override { isOverlayUp_ = isUp; }

 private:
  void act(void (FakeKeyboard::*event)(std::uint16_t), std::uint16_t key) {
    (keyboard_.*event)(key);
    time_.runUntilIdle();
  }

  bool isOverlayUp_ = false;
  VirtualTime time_;
  FakeKeyboard keyboard_{[this] { return isOverlayUp_; }};
};

TEST(FakeKeyboardTest, KeepsTheContractOfTheKeyPorts) {
  for (const KeyStory& story : kKeyStories) {
    FakeKeyBench bench;
    EXPECT_EQ(KeyContract(bench).outcomeOf(story), story.outcome) << story.name;
  }
}

}  // namespace
}  // namespace rondora
