#pragma once

#include <functional>
#include <string>

#include "base/observable.h"
#include "model/app_language.h"
#include "settings/findings_watch.h"

namespace rondora {

/// The texts of the program's windows, in the user's language.
struct WindowTexts {
  std::string settingsTitle;
  std::string settingsIntroduction;
  std::string documentHeading;
  std::string openFolder;
  std::string language;
  std::string copy;
  std::string sessionHeading;
  /// Screen-reader names of the marks before the findings.
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
};

/// Contents of the windows, queried each time one is shown.
struct WindowContents {
  std::function<WindowTexts()> texts;
  /// Subscribes to changes of the texts; visible windows update.
  std::function<Subscription(std::function<void()>)> onTextsChanged;
  /// Absolute path of the configuration document.
  std::string documentPath;
  std::function<void()> openDocumentFolder;
  std::function<AppLanguage()> language;
  std::function<void(AppLanguage)> chooseLanguage;
  std::function<void()> quit;
  /// Calls the observer with the findings about the session, at once and after each change.
  std::function<Subscription(FindingsObserver)> watchFindings;
  /// As `watchFindings`, with failures only.
  std::function<Subscription(FindingsObserver)> watchFailures;
  /// Carries out the command of a finding's button; the findings may change with it.
  std::function<void(const FindingButton&)> press;
};

}  // namespace rondora
