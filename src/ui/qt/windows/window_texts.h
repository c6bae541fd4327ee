#pragma once

#include <string>

namespace rondora {

/// All texts of the program's windows, in the user's language.
struct WindowTexts {
  std::string settingsTitle;
  std::string settingsIntroduction;
  std::string documentHeading;
  std::string openFolder;
  std::string language;
  std::string copy;
  std::string sessionHeading;
  /// Screen-reader names of the marks before findings.
  std::string works;
  std::string fails;
  std::string quit;
  std::string close;

  std::string onboardingTitle;
  std::string onboardingHeadline;
  std::string onboardingIntroduction;
  /// How the ring is opened; `onboardingHotkey` is shown as key caps below it, its parts separated by "+".
  std::string onboardingHowToOpen;
  std::string onboardingHotkey;
  std::string onboardingHowToChoose;
  std::string onboardingWhereItLives;
  std::string onboardingDone;

  std::string snippetHint;
};

}  // namespace rondora
