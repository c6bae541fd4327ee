#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kGermanStrings = completeTable({
    {StringKey::settings, "Einstellungen"},
    {StringKey::quit, "Beenden"},
    {StringKey::onboardingTitle, "Willkommen bei Rondora"},
    {StringKey::onboardingGreeting, "Alles Wichtige in einem Ring um den Zeiger"},
    {StringKey::onboardingWhatItIs,
     "Rondora öffnet einen Ring von Aktionen um den Zeiger: Programme, Links, Textbausteine."},
    {StringKey::onboardingHowToOpen, "Drücken Sie %@, um den Ring zu öffnen."},
    {StringKey::onboardingHowToChoose,
     "Zeigen Sie auf einen Sektor und lassen Sie die Tasten los, oder klicken Sie ihn an. Esc schließt den Ring."},
    {StringKey::onboardingConfigurationFile, "Ihre Menüs liegen in einer einzigen Datei: %@"},
    {StringKey::onboardingGetStarted, "Los geht’s"},
    {StringKey::settingsTitle, "Rondora-Einstellungen"},
    {StringKey::settingsConfigurationFile, "Konfigurationsdatei:"},
    {StringKey::settingsOpenFolder, "Ordner öffnen"},
    {StringKey::settingsLanguage, "Sprache:"},
    {StringKey::settingsHotkeyRefused,
     "Das Tastenkürzel des Menüs „%@“ wird bereits von einem anderen Programm benutzt."},
    {StringKey::settingsNoTray,
     "Dieser Desktop hat keinen Infobereich, daher ist das Symbol von Rondora nicht zu sehen."},
    {StringKey::settingsHotkeysNote,
     "Globale Tastenkürzel nutzen die Carbon-API des Systems. Kombinationen nur mit Fn oder der Globus-Taste lassen "
     "sich möglicherweise nicht registrieren – wählen Sie ein anderes Kürzel."},
    {StringKey::snippetHint, "Der Text wurde in die Zwischenablage kopiert. Fügen Sie ihn mit Command+V selbst ein."},
    {StringKey::importRefused,
     "Diese Datei konnte nicht gelesen werden. Bitte wählen Sie eine gültige Sicherung der Einstellungen."},
});

}  // namespace rondora
