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
    {StringKey::settingsCopy, "Kopieren"},
    {StringKey::settingsClose, "Schließen"},
    {StringKey::settingsSession, "In dieser Sitzung:"},
    {StringKey::sessionWorks, "Funktioniert"},
    {StringKey::sessionFails, "Funktioniert nicht"},
    {StringKey::sessionX11, "Dies ist eine X11-Sitzung: Der Ring öffnet sich über jedem Fenster."},
    {StringKey::sessionWayland,
     "Dies ist eine Wayland-Sitzung: Tastenkürzel kommen nur an, während ein X11-Fenster die Tastatur hat, und Fenster "
     "von Wayland-Programmen lassen sich nicht nach vorn holen."},
    {StringKey::sessionWaylandRemedy,
     "Wählen Sie bei der Anmeldung eine X11-Sitzung („Xorg“), oder lassen Sie ein Tastenkürzel Ihres Desktops die "
     "D-Bus-Methode „Trigger“ aufrufen; wie das geht, steht in der README."},
    {StringKey::sessionHotkeysWork, "Jedes Menü mit einem Tastenkürzel lässt sich damit öffnen."},
    {StringKey::sessionHotkeyRefusedRemedy,
     "Geben Sie %@ in dem anderen Programm oder in den Tastatureinstellungen Ihres Desktops frei und starten Sie "
     "Rondora neu, oder geben Sie dem Menü in der Konfigurationsdatei ein anderes Tastenkürzel."},
    {StringKey::sessionHotkeyUnusable, "Rondora kann das Tastenkürzel des Menüs „%@“ hier nicht verwenden."},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Beenden Sie Rondora, geben Sie dem Menü in der Konfigurationsdatei ein anderes Tastenkürzel und starten Sie "
     "Rondora wieder."},
    {StringKey::sessionTray, "Das Symbol von Rondora ist im Infobereich."},
    {StringKey::sessionNoTrayRemedy,
     "Fügen Sie Ihrer Leiste einen Infobereich hinzu; GNOME braucht dafür die Erweiterung „AppIndicator“. Auch ohne "
     "das Symbol gilt: Wird Rondora noch einmal gestartet, öffnen sich diese Einstellungen."},
    {StringKey::sessionKeystrokes, "Tastendrücke erreichen die anderen Programme."},
    {StringKey::sessionNoKeystrokes,
     "Der X-Server nimmt keine Tastendrücke von Programmen an; Einträge, die Tasten drücken, bewirken daher nichts."},
    {StringKey::sessionNoKeystrokesRemedy, "Schalten Sie die XTEST-Erweiterung des X-Servers ein."},
    {StringKey::sessionTrackpadIgnored,
     "Diese Version reagiert noch nicht auf Tippen auf das Touchpad; es öffnet daher kein Menü."},
    {StringKey::sessionTrackpadUnreadable,
     "Rondora darf das Touchpad nicht lesen; Tippen darauf öffnet daher kein Menü."},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "Öffnen Sie diese Menüs stattdessen mit einem Tastenkürzel; in der Konfigurationsdatei können Sie ihnen eines "
     "geben."},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "Öffnen Sie diese Menüs stattdessen mit einem Tastenkürzel. Eine spätere Version wird auf Tippen reagieren, wenn "
     "Ihr Benutzer zur Gruppe „input“ gehört."},
    {StringKey::documentUnreadable,
     "Rondora konnte seine Konfigurationsdatei nicht lesen und ist mit den Standardmenüs gestartet: %@"},
    {StringKey::documentKept, "Diese Datei ist aufbewahrt als %@."},
    {StringKey::documentKeptItself,
     "Eine Kopie ließ sich nicht schreiben; daher hat die Datei selbst jetzt den Namen %@."},
    {StringKey::documentNotKept, "Diese Datei ließ sich nicht aufbewahren: %@"},
    {StringKey::documentRestoreHint, "Beheben Sie den Fehler darin und stellen Sie sie wieder her."},
    {StringKey::documentNothingOpensIt, "Kein Programm hier öffnet diese Datei."},
    {StringKey::findingOpenFile, "Datei öffnen"},
    {StringKey::findingRestore, "Wiederherstellen"},
    {StringKey::findingDismiss, "Ausblenden"},
    {StringKey::documentEdited,
     "Die Konfigurationsdatei wurde bearbeitet, während Rondora lief; danach hat Rondora sie mit den eigenen "
     "Einstellungen überschrieben."},
    {StringKey::documentImportHint, "Importieren Sie sie, um die bearbeiteten Einstellungen zu verwenden."},
    {StringKey::findingImport, "Importieren"},
    {StringKey::documentNotSaved, "Rondora kann seine Einstellungen nicht speichern: %@"},
    {StringKey::documentNotSavedRemedy,
     "Schaffen Sie Platz auf dem Datenträger oder erlauben Sie Rondora, dort zu schreiben, und speichern Sie noch "
     "einmal. Bis dahin gehen Änderungen verloren, wenn Rondora endet."},
    {StringKey::findingSaveAgain, "Erneut speichern"},
    {StringKey::snippetHint, "Der Text wurde in die Zwischenablage kopiert. Fügen Sie ihn mit Command+V selbst ein."},
    {StringKey::importRefused,
     "Diese Datei konnte nicht gelesen werden. Bitte wählen Sie eine gültige Sicherung der Einstellungen."},
});

}  // namespace rondora
