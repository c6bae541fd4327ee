#include "input/hotkey_display.h"

#include <gtest/gtest.h>

#include <set>

#include "base/unicode.h"
#include "doubles/fake_keyboard.h"
#include "model/carbon_modifiers.h"
#include "platform/key_event.h"

namespace rondora {
namespace {

constexpr std::int64_t kAllCarbon =
    carbon::kCommand | carbon::kShift | carbon::kOption | carbon::kControl | carbon::kFunction;

struct Row {
  HotkeyConfig hotkey;
  std::string words;
  std::string glyphs;
};

class HotkeyDisplayTest : public testing::TestWithParam<Row> {};

TEST_P(HotkeyDisplayTest, ShowsWordsAndGlyphs) {
  EXPECT_EQ(displayString(GetParam().hotkey, AppLanguage::english), GetParam().words);
  EXPECT_EQ(glyphString(GetParam().hotkey), GetParam().glyphs);
}

INSTANTIATE_TEST_SUITE_P(Combinations, HotkeyDisplayTest,
                         testing::Values(Row{{48, carbon::kCommand}, "Cmd + Tab", "⌘⇥"}, Row{{63, 0}, "Fn", "Fn"},
                                         Row{{49, carbon::kControl | carbon::kOption}, "Ctrl + Alt + Space", "⌃⌥Space"},
                                         Row{{36, carbon::kFunction}, "Fn + Return", "fn ↩"},
                                         Row{{0, kAllCarbon}, "Ctrl + Alt + Shift + Cmd + Fn + A", "fn ⌃⌥⇧⌘A"},
                                         Row{{51, 0}, "Delete", "⌫"}, Row{{53, 0}, "Esc", "⎋"},
                                         Row{{117, 0}, "Fwd Del", "⌦"}, Row{{42, carbon::kShift}, "Shift + \\", "⇧\\"},
                                         Row{{-1, 0}, "Unassigned", ""}));

TEST(HotkeyDisplay, NamesAKeyWithoutANameByItsNumber) {
  EXPECT_EQ(keyCodeToString(52), "Key52");
  EXPECT_EQ(keyCodeToString(200), "Key200");
  EXPECT_EQ(keyCodeToString(82), "Key82");
  EXPECT_EQ(keyCodeToString(INT64_MIN), "Key-9223372036854775808");
}

TEST(HotkeyDisplay, NamesAKeyByWhatItTypesOnAUsKeyboard) {
  FakeKeyboard keyboard([] { return true; });
  std::string typed;
  const auto monitor = keyboard.addLocalMonitor(kKeyDownAndKeyUpMask, [&](const KeyEvent& event) {
    typed = upperCased(event.characters);
    return true;
  });
  for (std::uint16_t keyCode = 0; keyCode <= 50; ++keyCode) {
    const bool isNamed = keyCode == 10 || keyCode == 36 || keyCode == 48 || keyCode == 49;
    keyboard.tap(keyCode);
    EXPECT_EQ(keyCodeToString(keyCode) == typed, !isNamed) << keyCode;
  }
}

TEST(HotkeyDisplay, NamesEveryKeyDifferently) {
  std::set<std::string> names;
  for (std::int64_t keyCode = 0; keyCode < 128; ++keyCode) names.insert(keyCodeToString(keyCode));
  EXPECT_EQ(names.size(), 128U);
}

TEST(HotkeyDisplay, SaysUnassignedInRussianAndElseInEnglish) {
  EXPECT_EQ(displayString(std::nullopt, AppLanguage::russian), "Не назначено");
  EXPECT_EQ(displayString(std::nullopt, AppLanguage::japanese), "Unassigned");
  EXPECT_EQ(glyphString(std::nullopt), "");
  EXPECT_EQ(keystrokeDisplayString(0, 0, AppLanguage::russian), "Не назначено");
  EXPECT_EQ(keystrokeDisplayString(0, 0, AppLanguage::german), "Unassigned");
}

TEST(HotkeyDisplay, ReadsAKeystrokesModifiersAsEventFlags) {
  EXPECT_EQ(keystrokeDisplayString(0, event_flags::kCommand, AppLanguage::english), "Cmd + A");
  EXPECT_EQ(keystrokeDisplayString(40, event_flags::kControl | event_flags::kShift, AppLanguage::english),
            "Ctrl + Shift + K");
  EXPECT_EQ(keystrokeDisplayString(123, event_flags::kOption | event_flags::kFunction, AppLanguage::english),
            "Alt + Fn + ←");
}

TEST(HotkeyDisplay, CallsCommandSuperOnAPcKeyboardAndNothingElseDifferently) {
  EXPECT_EQ(displayString(HotkeyConfig{0, kAllCarbon}, AppLanguage::english, kPcModifierNames),
            "Ctrl + Alt + Shift + Super + Fn + A");
  EXPECT_EQ(keystrokeDisplayString(48, event_flags::kCommand, AppLanguage::german, kPcModifierNames), "Super + Tab");
  EXPECT_EQ(displayString(std::nullopt, AppLanguage::german, kPcModifierNames), "Unassigned");
}

}  // namespace
}  // namespace rondora
