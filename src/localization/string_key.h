#pragma once

#include <cstddef>

namespace rondora {

/// The texts that the program shows. "%@" in a text stands for what the caller fills in.
enum class StringKey {
  settings,
  quit,

  onboardingTitle,
  onboardingGreeting,
  onboardingWhatItIs,
  onboardingHowToOpen,  // %@: the hotkey
  onboardingHowToChoose,
  onboardingConfigurationFile,  // %@: its path
  onboardingGetStarted,

  settingsTitle,
  settingsConfigurationFile,
  settingsOpenFolder,
  settingsLanguage,
  settingsHotkeyRefused,  // %@: the menu's name
  settingsNoTray,
  settingsHotkeysNote,
  /// Names the paste shortcut as "Command+V" in every language.
  snippetHint,
  importRefused,
};

inline constexpr std::size_t kStringKeyCount = static_cast<std::size_t>(StringKey::importRefused) + 1;

}  // namespace rondora
