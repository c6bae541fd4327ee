#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kEnglishStrings = completeTable({
    {StringKey::settings, "Settings"},
    {StringKey::quit, "Quit"},
    {StringKey::onboardingTitle, "Welcome to Rondora"},
    {StringKey::onboardingGreeting, "Everything you need, in a ring around the pointer"},
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
    {StringKey::settingsCopy, "Copy"},
    {StringKey::settingsClose, "Close"},
    {StringKey::settingsSession, "In this session:"},
    {StringKey::sessionWorks, "Works"},
    {StringKey::sessionFails, "Does not work"},
    {StringKey::sessionX11, "This is an X11 session: the ring opens over every window."},
    {StringKey::sessionWayland,
     "This is a Wayland session: hotkeys work only while an X11 window has the keyboard, and windows of Wayland "
     "applications cannot be brought to the front."},
    {StringKey::sessionWaylandRemedy,
     "Choose an X11 session (“Xorg”) when you log in, or let a keyboard shortcut of your desktop call the D-Bus method "
     "“Trigger”; the README says how."},
    {StringKey::sessionHotkeysWork, "Every menu that has a hotkey opens with it."},
    {StringKey::sessionHotkeyRefusedRemedy,
     "Free %@ in the other program or in the keyboard settings of your desktop and start Rondora again, or give the "
     "menu another hotkey in the configuration file."},
    {StringKey::sessionHotkeyUnusable, "Rondora cannot use the hotkey of the menu “%@” here."},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Quit Rondora, give the menu another hotkey in the configuration file, and start Rondora again."},
    {StringKey::sessionTray, "Rondora’s icon is in the system tray."},
    {StringKey::sessionNoTrayRemedy,
     "Add a system tray to your panel; GNOME needs the extension “AppIndicator” for it. Without the icon, starting "
     "Rondora once more opens these settings."},
    {StringKey::sessionKeystrokes, "Keystrokes reach the other applications."},
    {StringKey::sessionNoKeystrokes,
     "The X server accepts no keystrokes from programs, so items that type keys do nothing."},
    {StringKey::sessionNoKeystrokesRemedy, "Turn on the X server’s XTEST extension."},
    {StringKey::sessionTrackpadIgnored,
     "This version does not react to taps on the trackpad yet, so they open no menu."},
    {StringKey::sessionTrackpadUnreadable, "Rondora may not read the trackpad, so taps on it open no menu."},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "Open these menus by hotkey instead; you can give them one in the configuration file."},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "Open these menus by hotkey instead. A later version will react to taps if your user belongs to the group "
     "“input”."},
    {StringKey::documentUnreadable,
     "Rondora could not read its configuration file and started with its standard menus: %@"},
    {StringKey::documentKept, "That file is kept as %@."},
    {StringKey::documentKeptItself, "No copy of it could be written, so the file itself now has the name %@."},
    {StringKey::documentNotKept, "That file could not be kept: %@"},
    {StringKey::documentRestoreHint, "Correct the mistake in it, then restore it."},
    {StringKey::documentNothingOpensIt, "No application here opens this file."},
    {StringKey::findingOpenFile, "Open File"},
    {StringKey::findingRestore, "Restore"},
    {StringKey::findingDismiss, "Dismiss"},
    {StringKey::documentEdited,
     "The configuration file was edited while Rondora was running, and Rondora has since saved its own settings over "
     "it."},
    {StringKey::documentImportHint, "Import it to use the edited settings."},
    {StringKey::findingImport, "Import"},
    {StringKey::documentNotSaved, "Rondora cannot save its settings: %@"},
    {StringKey::documentNotSavedRemedy,
     "Free space on the disk, or allow Rondora to write there, and save again. Until then changes are lost when "
     "Rondora ends."},
    {StringKey::findingSaveAgain, "Save Again"},
    {StringKey::snippetHint, "Text is copied to the clipboard. Paste it manually with Command+V."},
    {StringKey::importRefused, "Couldn't read this file. Please choose a valid settings backup."},
});

}  // namespace rondora
