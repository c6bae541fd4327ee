#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kEnglishStrings = completeTable({
    {StringKey::settings, "Settings"},
    {StringKey::quit, "Quit"},
    {StringKey::onboardingTitle, "Welcome to Rondora"},
    {StringKey::onboardingGreeting, "Everything you reach for, in a ring around the pointer"},
    {StringKey::onboardingWhatItIs,
     "Rondora opens a ring of actions around the pointer: applications, links, text snippets."},
    {StringKey::onboardingHowToOpen, "Press %@ to open the ring."},
    {StringKey::onboardingHowToChoose, "Point at a sector and let go of the keys, or click it. Esc closes the ring."},
    {StringKey::onboardingConfigurationFile, "Your menus live in one file: %@"},
    {StringKey::onboardingGetStarted, "Get Started"},
    {StringKey::settingsTitle, "Rondora Settings"},
    {StringKey::settingsConfigurationFile, "Configuration file:"},
    {StringKey::settingsOpenFolder, "Open Folder"},
    {StringKey::settingsLanguage, "Language:"},
    {StringKey::settingsHotkeyRefused, "The hotkey of the menu “%@” is already taken by another program."},
    {StringKey::settingsNoTray, "This desktop has no place for tray icons, so Rondora’s icon is not shown."},
    {StringKey::settingsHotkeysNote,
     "Global hotkeys use the system Carbon API. Fn-only or Globe combinations may not register — pick another "
     "shortcut."},
    {StringKey::snippetHint, "Text is copied to the clipboard. Paste it manually with Command+V."},
    {StringKey::importRefused, "Couldn't read this file. Please choose a valid settings backup."},
});

}  // namespace rondora
