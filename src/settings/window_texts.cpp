#include "settings/window_texts.h"

namespace rondora {

WindowTexts windowTexts(const LocalizationStore& localization) {
  const auto text = [&](StringKey key) { return std::string(localization.text(key)); };
  return {.settingsTitle = text(StringKey::settingsTitle),
          .settingsIntroduction = text(StringKey::onboardingWhatItIs),
          .documentHeading = text(StringKey::settingsConfigurationFile),
          .openFolder = text(StringKey::settingsOpenFolder),
          .language = text(StringKey::settingsLanguage),
          .copy = text(StringKey::settingsCopy),
          .hotkeysHeading = text(StringKey::settingsHotkeys),
          .recordHotkey = text(StringKey::hotkeyRecord),
          .cancelRecording = text(StringKey::hotkeyCancel),
          .removeHotkey = text(StringKey::hotkeyRemove),
          .startAtLogin = text(StringKey::settingsStartAtLogin),
          .sessionHeading = text(StringKey::settingsSession),
          .works = text(StringKey::sessionWorks),
          .fails = text(StringKey::sessionFails),
          .quit = text(StringKey::quit),
          .close = text(StringKey::settingsClose)};
}

std::string snippetHint(const LocalizationStore& localization, std::string_view pasteKeys) {
  constexpr std::string_view kKeysInText = "Command+V";
  std::string hint(localization.text(StringKey::snippetHint));
  if (const auto at = hint.find(kKeysInText); at != std::string::npos) hint.replace(at, kKeysInText.size(), pasteKeys);
  return hint;
}

}  // namespace rondora
