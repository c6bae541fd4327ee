#include "app/trigger_rules.h"

#include <gtest/gtest.h>

#include "app/snippet_preview.h"
#include "model/carbon_modifiers.h"

namespace rondora {
namespace {

constexpr HotkeyConfig kChord{49, carbon::kControl};
constexpr HotkeyConfig kPlain{40, 0};
constexpr HotkeyConfig kFn{63, 0};

PieMenu menuWith(HotkeyConfig hotkey) {
  PieMenu menu;
  menu.hotkey = hotkey;
  return menu;
}

TEST(TriggerRulesTest, DisplayedMenuWinsElseTheFirstWithAHotkey) {
  const std::vector<PieMenu> menus = {menuWith(kNoTrigger), menuWith(kChord), menuWith(kChord), menuWith(kPlain)};
  using Index = std::optional<std::size_t>;
  const struct {
    std::vector<std::uint32_t> candidates;
    Index displayed, expected;
  } cases[] = {{{0, 1, 2}, {}, 1U}, {{2, 1}, {}, 1U}, {{1, 2}, 2U, 2U}, {{1, 2}, 3U, 1U},
               {{0}, {}, {}},       {{0, 1}, 0U, 1U}, {{}, 1U, {}},     {{9}, {}, {}}};
  for (const auto& each : cases) {
    EXPECT_EQ(resolveMenuIndex(each.candidates, menus, each.displayed), each.expected) << &each - cases;
  }
}

TEST(TriggerRulesTest, OnlyTheShownMenusRepeatableTriggerSteps) {
  PieMenu menu;
  menu.id = Uuid::fromBytes({1});
  const Uuid other;
  EXPECT_EQ(toggleOutcome(menu, kChord, std::nullopt), Toggle::show);
  EXPECT_EQ(toggleOutcome(menu, kPlain, menu.id), Toggle::step);
  EXPECT_EQ(toggleOutcome(menu, kPlain, other), Toggle::close);
  EXPECT_EQ(toggleOutcome(menu, kNoTrigger, menu.id), Toggle::close);
  EXPECT_EQ(toggleOutcome(menu, kFn, menu.id), Toggle::close);
}

TEST(TriggerRulesTest, KeystrokesSnippetsAndEmptyItemsRestoreFirst) {
  for (const MenuAction& action : {MenuAction(Keystroke{7, 0}), MenuAction(Snippet{"x"}), MenuAction(Unassigned{})}) {
    EXPECT_EQ(restoreDelay(action), 0.15);
  }
  for (const MenuAction& action : {MenuAction(LaunchApp{"a"}), MenuAction(OpenURL{"b"}),
                                   MenuAction(SystemShortcut{MacOSSystemActionKind::missionControl})}) {
    EXPECT_EQ(restoreDelay(action), std::nullopt);
  }
}

TEST(SnippetPreviewTest, IsTrimmedAndCutBetweenCharacters) {
  EXPECT_FALSE(snippetPreview(" \n\t", ""));
  EXPECT_EQ(snippetPreview(std::string(20000, ' ') + "hi \n", "hint")->text, "hi");
  std::string hearts;
  for (int i = 0; i < 4000; ++i) hearts += "♥";
  const std::string text = snippetPreview("x" + hearts, "")->text;
  EXPECT_LE(text.size(), 9600U);
  EXPECT_EQ(text.size() % 3, 1U) << "whole characters only";
}

}  // namespace
}  // namespace rondora
