#include "settings/onboarding/welcome.h"

namespace rondora {

WelcomeContents::Step Welcome::step(StringKey key, bool isDone, bool isNext, const std::string& argument) const {
  std::string words = argument.empty() ? text(key) : services_.localization.text(key, argument);
  std::string name = text(isDone ? StringKey::onboardingStepDone : StringKey::onboardingStepToDo) + ": " + words;
  return {std::move(words), std::move(name), isDone, isNext};
}

WelcomeContents Welcome::contents() const {
  const Facts facts = services_.facts();
  const bool hasHotkey = !facts.hotkey.empty();
  const bool hasOpened = openings_ > 0;
  const bool helps = !hasHotkey || !facts.isHotkeyReliable;
  const bool isDone = hasOpened && isItemChosen_;
  return {.title = text(StringKey::onboardingTitle),
          .headline = text(isDone ? StringKey::onboardingDoneHeadline : StringKey::onboardingGreeting),
          .introduction = text(isDone ? StringKey::onboardingDoneText : StringKey::onboardingWhatItIs),
          .steps = {step(hasHotkey ? StringKey::onboardingHowToOpen : StringKey::onboardingOpenWithButton, hasOpened,
                         !hasOpened, facts.hotkey),
                    step(hasHotkey ? StringKey::onboardingHowToChoose : StringKey::onboardingPointAndClick,
                         isItemChosen_, hasOpened && !isItemChosen_)},
          .hotkey = facts.hotkey,
          .openRing = helps ? text(StringKey::onboardingOpenRing) : "",
          .chooseHotkey = helps ? text(StringKey::onboardingChooseHotkey) : "",
          .whereItLives = services_.localization.text(StringKey::onboardingConfigurationFile, services_.documentPath),
          .language = text(StringKey::settingsLanguage),
          .works = text(StringKey::sessionWorks),
          .fails = text(StringKey::sessionFails),
          .close = text(isDone ? StringKey::onboardingGetStarted : StringKey::settingsClose),
          .isDone = isDone};
}

void Welcome::ringOpened() {
  ++openings_;
  changed_.send();
}

void Welcome::ringWasTapped() {
  if (openings_ == 0 || isItemChosen_) return;
  --openings_;
  changed_.send();
}

void Welcome::itemChosen() {
  isItemChosen_ = true;
  changed_.send();
}

}  // namespace rondora
