#include "model/pie_configuration.h"

#include <gmock/gmock.h>

#include "doubles/fake_devices.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::Pair;
using testing::SizeIs;

class PieConfigurationTest : public testing::Test {
 protected:
  PieMenu menu(PieMenuKind kind, std::int64_t fingers, bool enabled = true) {
    PieMenu result;
    result.id = random.uuid();
    result.kind = kind;
    result.trackpadFingerCount = fingers;
    result.runningAppsMenuEnabled = enabled;
    return result;
  }
  std::vector<std::int64_t> fingerCounts() const {
    std::vector<std::int64_t> counts;
    for (const PieMenu& each : document.menus) counts.push_back(each.trackpadFingerCount);
    return counts;
  }

  SeededRandom random;
  PieConfiguration document;
};

TEST_F(PieConfigurationTest, LastEnabledMenuWinsAFingerCount) {
  document.menus = {menu(PieMenuKind::standard, 4), menu(PieMenuKind::standard, 4), menu(PieMenuKind::standard, 3),
                    menu(PieMenuKind::standard, 0), menu(PieMenuKind::standard, 6), menu(PieMenuKind::standard, 2)};
  EXPECT_THAT(document.trackpadGestureTargets(), ElementsAre(Pair(3, 2), Pair(4, 1)));
  document.menus = {menu(PieMenuKind::standard, 5, false), menu(PieMenuKind::runningApps, 3),
                    menu(PieMenuKind::standard, 4), menu(PieMenuKind::appCommands, 4, false)};
  EXPECT_THAT(document.trackpadGestureTargets(), ElementsAre(Pair(3, 1), Pair(5, 0)));
}

TEST_F(PieConfigurationTest, AssigningAFingerCountMovesIt) {
  document.menus = {menu(PieMenuKind::standard, 4), menu(PieMenuKind::standard, 4), menu(PieMenuKind::standard, 5)};
  document.assignTrackpadFingerCount(4, document.menus[2].id);
  EXPECT_THAT(fingerCounts(), ElementsAre(0, 0, 4));
  document.assignTrackpadFingerCount(6, document.menus[2].id);
  EXPECT_THAT(fingerCounts(), ElementsAre(0, 0, 0));
  document.assignTrackpadFingerCount(3, document.menus[0].id);
  document.assignTrackpadFingerCount(3, random.uuid());
  EXPECT_THAT(fingerCounts(), ElementsAre(3, 0, 0));
}

TEST_F(PieConfigurationTest, FirstCommandSetOfAnApplicationWins) {
  document.appSubMenus = {{"org.a", {}, 1.0}, {"org.b", {}, 2.0}, {"org.b", {}, 3.0}};
  EXPECT_EQ(document.appSubMenu("org.b"), &document.appSubMenus[1]);
  EXPECT_EQ(document.appSubMenu("org.B"), nullptr);
  EXPECT_THAT(document.defaultAppCommands(random), SizeIs(8)) << "the built-in ones";
  document.menus = {menu(PieMenuKind::standard, 0), menu(PieMenuKind::appCommands, 0)};
  document.menus[1].appCommandsDefaultEntries.resize(1);
  EXPECT_EQ(document.defaultAppCommands(random), document.menus[1].appCommandsDefaultEntries);
}

TEST(RawValueTest, RawValuesRoundTrip) {
  for (const AppLanguage language : kAppLanguages) EXPECT_EQ(appLanguageFromRawValue(rawValue(language)), language);
  EXPECT_EQ(rawValue(AppLanguage::russian), "ru");
  EXPECT_EQ(rawValue(AppLanguage::japanese), "ja");
  EXPECT_EQ(rawValue(AppSubMenuEntry::Kind::closeWindow), "closeWindow");
  EXPECT_EQ(systemActionFromRawValue("lockScreen"), MacOSSystemActionKind::lockScreen);
  EXPECT_EQ(systemActionFromRawValue("LockScreen"), std::nullopt);
}

}  // namespace
}  // namespace rondora
