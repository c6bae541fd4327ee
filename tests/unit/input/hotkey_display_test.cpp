#include "input/hotkeys/hotkey_display.h"

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

TEST(HotkeyDisplay, ShowsWordsAndGlyphs) {
  const Row rows[] = {{{48, carbon::kCommand}, "Cmd + Tab", "⌘⇥"},
                      {{63, 0}, "Fn", "Fn"},
                      {{49, carbon::kControl | carbon::kOption}, "Ctrl + Alt + Space", "⌃⌥Space"},
                      {{36, carbon::kFunction}, "Fn + Return", "fn ↩"},
                      {{0, kAllCarbon}, "Ctrl + Alt + Shift + Cmd + Fn + A", "fn ⌃⌥⇧⌘A"},
                      {{51, 0}, "Delete", "⌫"},
                      {{53, 0}, "Esc", "⎋"},
                      {{117, 0}, "Fwd Del", "⌦"},
                      {{-1, 0}, "Unassigned", ""}};
  for (const Row& row : rows) {
    EXPECT_EQ(displayString(row.hotkey, AppLanguage::english), row.words);
    EXPECT_EQ(glyphString(row.hotkey), row.glyphs) << row.words;
  }
}

TEST(HotkeyDisplay, NamesTheKeyEquivalentsOfMenus) {
  const std::pair<MenuShortcut, std::string> rows[] = {
      {{"S", 0}, "Cmd+S"},           {{"é", 1 + 2 + 4}, "Ctrl+Alt+Shift+Cmd+é"},
      {{"\uF703", 4 + 8}, "Ctrl+→"}, {{"\r", 2 + 8}, "Alt+Return"},
      {{"\uF704", 8}, "F1"},         {{"\uF726", 8}, "F35"},
      {{"\uF727", 8}, "Insert"},     {{"", 4}, ""}};
  for (const auto& [shortcut, text] : rows) EXPECT_EQ(menuShortcutText(shortcut), text);
}

TEST(HotkeyDisplay, NamesKeysByTheirUsCharacters) {
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

TEST(HotkeyDisplay, KeyNamesAreUnique) {
  std::set<std::string> names;
  for (std::int64_t keyCode = 0; keyCode < 128; ++keyCode) names.insert(keyCodeToString(keyCode));
  EXPECT_EQ(names.size(), 128U);
  EXPECT_EQ(keyCodeToString(82), "Key82");
  EXPECT_EQ(keyCodeToString(INT64_MIN), "Key-9223372036854775808");
}

TEST(HotkeyDisplay, UnassignedTextIsRussianOrEnglish) {
  for (const auto& [language, text] :
       {std::pair(AppLanguage::russian, "Не назначено"), std::pair(AppLanguage::japanese, "Unassigned")}) {
    EXPECT_EQ(displayString(std::nullopt, language), text);
    EXPECT_EQ(keystrokeDisplayString(0, 0, language), text);
  }
  EXPECT_EQ(glyphString(std::nullopt), "");
}

TEST(HotkeyDisplay, ReadsKeystrokeModifiersAsEventFlags) {
  EXPECT_EQ(keystrokeDisplayString(0, event_flags::kCommand, AppLanguage::english), "Cmd + A");
  EXPECT_EQ(keystrokeDisplayString(40, event_flags::kControl | event_flags::kShift, AppLanguage::english),
            "Ctrl + Shift + K");
  EXPECT_EQ(keystrokeDisplayString(123, event_flags::kOption | event_flags::kFunction, AppLanguage::english),
            "Alt + Fn + ←");
  EXPECT_EQ(keystrokeDisplayString(48, event_flags::kCommand, AppLanguage::german, kPcModifierNames), "Super + Tab");
  EXPECT_EQ(displayString(HotkeyConfig{0, kAllCarbon}, AppLanguage::english, kPcModifierNames),
            "Ctrl + Alt + Shift + Super + Fn + A");
}

}  // namespace
}  // namespace rondora
