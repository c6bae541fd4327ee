#include "localization/localization_store.h"

#include <gtest/gtest.h>

#include <vector>

namespace rondora {
namespace {

TEST(LocalizationStore, PublishesChangesOfTheLanguage) {
  LocalizationStore store;
  std::vector<AppLanguage> seen;
  const auto subscription =
      store.currentLanguage().subscribe([&seen](const AppLanguage& language) { seen.push_back(language); });
  EXPECT_EQ(store.text(StringKey::quit), "Quit");
  store.setLanguage(AppLanguage::german);
  EXPECT_EQ(store.text(StringKey::quit), "Beenden");
  store.setLanguage(AppLanguage::german);
  EXPECT_EQ(seen, (std::vector{AppLanguage::english, AppLanguage::german}));
}

TEST(LocalizationStore, FillsInTheArgumentAndKeepsItsDirection) {
  LocalizationStore store;
  EXPECT_EQ(store.text(StringKey::settingsHotkeyRefused, "%@ %s"),
            "The hotkey of the menu “%@ %s” is already taken by another program.");
  EXPECT_EQ(store.text(StringKey::quit, "unused"), "Quit");
  store.setLanguage(AppLanguage::russian);
  EXPECT_EQ(store.text(StringKey::onboardingConfigurationFile, "/home/a"), "Ваши меню хранятся в одном файле: /home/a");
  EXPECT_NE(store.text(StringKey::settingsHotkeyRefused, "خط (v2)").find("«\u2068خط (v2)\u2069»"), std::string::npos);
  store.setLanguage(AppLanguage::arabic);
  EXPECT_NE(store.text(StringKey::onboardingConfigurationFile, "/a").find("\u2068/a\u2069"), std::string::npos);
}

}  // namespace
}  // namespace rondora
