#include "settings/icons/icon_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace rondora {
namespace {

std::string names(std::string_view part) {
  if (part == "icons") return "\tsymbols\nstar.fill\ncat.fill\n\temoji_animals\n🐈\n🐕\n";
  if (part == "de") return "-\nStern\tstar\nKatze\tcat\nTiere\nKatze\tMiau\nHund\tHaustier\n";
  return "-\nstar\t\ncat\tpet\nAnimals\ncat\tpet\ndog\tpet\n";
}

class IconChoiceTest : public testing::Test {
 protected:
  IconChoice choiceFor(std::string icon, MenuAction action = Unassigned()) {
    PieMenuItem item;
    item.icon = std::move(icon);
    item.action = std::move(action);
    return {german_, names, recent_, item};
  }
  static std::string shown(const IconChoice& choice) {
    std::string text = choice.heading() + ":";
    for (const auto& cell : choice.cells()) text += " " + cell.icon + "=" + cell.name;
    return text;
  }

  LocalizationStore german_{AppLanguage::german};
  RecentIcons recent_;
};

TEST_F(IconChoiceTest, BeginsAtThePresentIconAndSearchesInAllSections) {
  IconChoice choice = choiceFor("🐕");
  EXPECT_EQ(shown(choice), "Tiere: 🐈=Katze 🐕=Hund");
  EXPECT_EQ(choice.startingCell(), 1U);
  choice.search("kat");
  EXPECT_EQ(shown(choice), "Suchergebnisse: cat.fill=Katze 🐈=Katze");
  EXPECT_EQ(choice.startingCell(), 0U);
  choice.search("pet");
  EXPECT_EQ(shown(choice), "Suchergebnisse: cat.fill=Katze 🐈=Katze 🐕=Hund");
  choice.search("haus pet");
  EXPECT_EQ(shown(choice), "Suchergebnisse: 🐕=Hund");
  choice.search("nothing");
  EXPECT_NE(choice.note(), "");
  EXPECT_EQ(choice.startingCell(), std::nullopt);
  choice.search(" 👍🏽");
  EXPECT_EQ(shown(choice), "Suchergebnisse: 👍🏽=👍🏽");
  choice.search(" ");
  EXPECT_EQ(shown(choice), "Tiere: 🐈=Katze 🐕=Hund");
  EXPECT_EQ(choice.note(), "");
}

TEST_F(IconChoiceTest, ListsWhatWasChosenLastInASectionOfItsOwn) {
  IconChoice first = choiceFor("/picture.png");
  EXPECT_EQ(first.sections().size(), 2U);
  EXPECT_EQ(shown(first), "Symbole: star.fill=Stern cat.fill=Katze");
  for (const std::size_t cell : {0U, 1U, 0U}) first.chose(first.cells()[cell]);
  IconChoice second = choiceFor("cat.fill");
  EXPECT_EQ(second.section(), 1U);
  second.showSection(0);
  EXPECT_EQ(shown(second), "Zuletzt verwendet: star.fill=Stern cat.fill=Katze");
  EXPECT_EQ(second.startingCell(), 1U);
}

TEST_F(IconChoiceTest, OffersTheIconsOfWhatTheItemOpens) {
  const auto firstOther = [&](MenuAction action) {
    const auto other = choiceFor("", std::move(action)).others().front();
    return other.icon.value_or("?") + " " + other.picture.name;
  };
  EXPECT_EQ(firstOther(LaunchApp{"org.gnome.Maps"}), "app:org.gnome.Maps org.gnome.Maps");
  EXPECT_EQ(firstOther(OpenURL{"https://Example.org/maps"}), "favicon: https://example.org");
  for (const MenuAction& action : {MenuAction(OpenURL{"mailto:x@y.z"}), MenuAction(LaunchApp{}), MenuAction()}) {
    EXPECT_EQ(firstOther(action), "? macwindow") << "one that is yet to be chosen";
  }
}

}  // namespace
}  // namespace rondora
