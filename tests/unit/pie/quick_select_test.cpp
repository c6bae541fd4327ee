#include "pie/labels/quick_select.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace rondora {
namespace {

using Labels = std::vector<std::optional<std::string>>;
using Index = std::optional<std::size_t>;

std::vector<PieMenuItem> items(std::size_t count, std::initializer_list<std::pair<std::size_t, const char*>> own = {}) {
  std::vector<PieMenuItem> made(count);
  for (const auto& [index, label] : own) made[index].customShortcut = label;
  return made;
}

TEST(ShortcutLabelsTest, DefaultsGoByPosition) {
  const Labels labels = resolvedShortcutLabels(items(38));
  std::string line;
  for (const auto& label : labels) line += label.value_or("-");
  EXPECT_EQ(line, "0123456789QWERTYUIOPASDFGHJKLZXCVBNM--");
}

TEST(ShortcutLabelsTest, OwnLabelsReplaceDefaults) {
  const Labels labels = resolvedShortcutLabels(items(11, {{3, "q"}, {0, "5"}, {1, ""}}));
  EXPECT_EQ(labels[3], "q");
  EXPECT_EQ(labels[10], std::nullopt);
  EXPECT_EQ(labels[5], std::nullopt);
  EXPECT_EQ(labels[0], "5");
  EXPECT_EQ(labels[1], "1");  // an empty one counts as none
  EXPECT_EQ(itemIndex("Q", labels), Index(3));
  EXPECT_EQ(itemIndex(" q\n", labels), Index(3));
  EXPECT_EQ(itemIndex("5", labels), Index(0));
}

TEST(ShortcutLabelsTest, MatchesWholeTextsOnly) {
  const Labels labels = resolvedShortcutLabels(items(5, {{0, "ab"}, {1, "  "}, {2, "é"}, {3, "É"}, {4, "SS"}}));
  EXPECT_EQ(itemIndex("AB", labels), Index(0));
  EXPECT_EQ(itemIndex("É", labels), Index(2));  // the first of two
  EXPECT_EQ(itemIndex("ß", labels), Index(4));
  for (const char* typed : {"a", "", " ", "\r", "  \t", "\xFF"}) {
    EXPECT_EQ(itemIndex(typed, labels), std::nullopt) << typed;
  }
}

TEST(QuickSelectKeyTest, EachPhysicalKeyStandsForItsPosition) {
  const std::vector<std::vector<std::uint16_t>> rows = {
      {29, 18, 19, 20, 21, 23, 22, 26, 28, 25, 12, 13, 14, 15, 17, 16, 32, 34,
       31, 35, 0,  1,  2,  3,  5,  4,  38, 40, 37, 6,  7,  8,  9,  11, 45, 46},
      {82, 83, 84, 85, 86, 87, 88, 89, 91, 92}};
  for (unsigned code = 0; code <= 0xFFFF; ++code) {
    Index position;
    for (const auto& row : rows) {
      const auto found = std::ranges::find(row, code);
      if (found != row.end()) position = static_cast<std::size_t>(found - row.begin());
    }
    ASSERT_EQ(quickSelectIndexByKeyCode(static_cast<std::uint16_t>(code)), position) << code;
  }
}

TEST(QuickSelectKeyTest, PhysicalKeyNeedsALabelAtItsPosition) {
  const ShortcutLabels labels(resolvedShortcutLabels(items(6, {{0, "5"}, {2, "x"}})));
  EXPECT_EQ(labels.indexForKeyCode(19), Index(2));      // not the default label, but one
  EXPECT_EQ(labels.indexForKeyCode(23), std::nullopt);  // position 5 lost its label
  EXPECT_EQ(labels.indexForKeyCode(22), std::nullopt);  // position 6 is beyond the items
  EXPECT_EQ(labels.indexForPressedKey("X"), Index(2));
}

}  // namespace
}  // namespace rondora
