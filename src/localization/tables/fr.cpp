#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kFrenchStrings = completeTable({
    {StringKey::settings, "Réglages"},
    {StringKey::quit, "Quitter"},
    {StringKey::onboardingTitle, "Bienvenue dans Rondora"},
    {StringKey::onboardingGreeting, "Tout ce qu’il vous faut, en anneau autour du pointeur"},
    {StringKey::onboardingWhatItIs,
     "Rondora ouvre un anneau d’actions autour du pointeur : applications, liens, extraits de texte."},
    {StringKey::onboardingHowToOpen, "Appuyez sur %@ pour ouvrir l’anneau."},
    {StringKey::onboardingHowToChoose,
     "Pointez vers un secteur et relâchez les touches, ou cliquez dessus. Échap ferme l’anneau."},
    {StringKey::onboardingConfigurationFile, "Vos menus se trouvent dans un seul fichier : %@"},
    {StringKey::onboardingGetStarted, "Commencer"},
    {StringKey::settingsTitle, "Réglages de Rondora"},
    {StringKey::settingsConfigurationFile, "Fichier de configuration :"},
    {StringKey::settingsOpenFolder, "Ouvrir le dossier"},
    {StringKey::settingsLanguage, "Langue :"},
    {StringKey::settingsHotkeyRefused, "Le raccourci du menu « %@ » est déjà pris par un autre programme."},
    {StringKey::settingsNoTray,
     "Ce bureau n’a pas de zone de notification\u202F; l’icône de Rondora n’est donc pas affichée."},
    {StringKey::settingsHotkeysNote,
     "Les raccourcis globaux utilisent l’API Carbon du système. Les combinaisons avec Fn ou Globe seuls peuvent ne pas "
     "être enregistrées : choisissez un autre raccourci."},
    {StringKey::settingsCopy, "Copier"},
    {StringKey::settingsClose, "Fermer"},
    {StringKey::settingsSession, "Dans cette session :"},
    {StringKey::sessionWorks, "Fonctionne"},
    {StringKey::sessionFails, "Ne fonctionne pas"},
    {StringKey::sessionX11, "Cette session utilise X11 : l’anneau s’ouvre par-dessus toutes les fenêtres."},
    {StringKey::sessionWayland,
     "Cette session utilise Wayland : les raccourcis ne sont reçus que lorsqu’une fenêtre X11 a le clavier, et les "
     "fenêtres des applications Wayland ne peuvent pas être mises au premier plan."},
    {StringKey::sessionWaylandRemedy,
     "Choisissez une session X11 (« Xorg ») à l’ouverture de session, ou faites appeler la méthode D-Bus « Trigger » "
     "par un raccourci clavier de votre bureau\u202F; le fichier README explique comment."},
    {StringKey::sessionHotkeysWork, "Chaque menu qui a un raccourci s’ouvre avec celui-ci."},
    {StringKey::sessionHotkeyRefusedRemedy,
     "Libérez %@ dans l’autre programme ou dans les réglages du clavier de votre bureau et relancez Rondora, ou donnez "
     "un autre raccourci au menu dans le fichier de configuration."},
    {StringKey::sessionHotkeyUnusable, "Rondora ne peut pas utiliser ici le raccourci du menu « %@ »."},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Quittez Rondora, donnez un autre raccourci au menu dans le fichier de configuration, puis relancez Rondora."},
    {StringKey::sessionTray, "L’icône de Rondora se trouve dans la zone de notification."},
    {StringKey::sessionNoTrayRemedy,
     "Ajoutez une zone de notification à votre panneau\u202F; GNOME a besoin pour cela de l’extension "
     "« AppIndicator ». Sans l’icône, lancez Rondora une nouvelle fois pour ouvrir ces réglages."},
    {StringKey::sessionKeystrokes, "Les frappes parviennent aux autres applications."},
    {StringKey::sessionNoKeystrokes,
     "Le serveur X n’accepte pas les frappes des programmes\u202F; les éléments qui appuient sur des touches sont donc "
     "sans effet."},
    {StringKey::sessionNoKeystrokesRemedy, "Activez l’extension XTEST du serveur X."},
    {StringKey::sessionTrackpadIgnored,
     "Cette version ne réagit pas encore aux appuis sur le pavé tactile : ils n’ouvrent aucun menu."},
    {StringKey::sessionTrackpadUnreadable,
     "Rondora n’a pas le droit de lire le pavé tactile : les appuis n’ouvrent aucun menu."},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "Ouvrez plutôt ces menus avec un raccourci\u202F; vous pouvez leur en donner un dans le fichier de "
     "configuration."},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "Ouvrez plutôt ces menus avec un raccourci. Une version ultérieure réagira aux appuis si votre compte appartient "
     "au groupe « input »."},
    {StringKey::documentUnreadable,
     "Rondora n’a pas pu lire son fichier de configuration et a démarré avec les menus par défaut : %@"},
    {StringKey::documentKept, "Ce fichier est conservé sous %@."},
    {StringKey::documentKeptItself,
     "Aucune copie n’a pu être écrite\u202F; le fichier lui-même porte désormais le nom %@."},
    {StringKey::documentNotKept, "Ce fichier n’a pas pu être conservé : %@"},
    {StringKey::documentRestoreHint, "Corrigez l’erreur qu’il contient, puis restaurez-le."},
    {StringKey::documentNothingOpensIt, "Aucune application n’ouvre ce fichier ici."},
    {StringKey::findingOpenFile, "Ouvrir le fichier"},
    {StringKey::findingRestore, "Restaurer"},
    {StringKey::findingDismiss, "Ignorer"},
    {StringKey::documentEdited,
     "Le fichier de configuration a été modifié pendant que Rondora fonctionnait, puis Rondora y a enregistré ses "
     "propres réglages."},
    {StringKey::documentImportHint, "Importez-le pour utiliser les réglages modifiés."},
    {StringKey::findingImport, "Importer"},
    {StringKey::documentNotSaved, "Rondora ne peut pas enregistrer ses réglages : %@"},
    {StringKey::documentNotSavedRemedy,
     "Libérez de l’espace sur le disque ou autorisez Rondora à y écrire, puis enregistrez à nouveau. D’ici là, les "
     "changements sont perdus quand Rondora se termine."},
    {StringKey::findingSaveAgain, "Enregistrer à nouveau"},
    {StringKey::snippetHint, "Le texte est copié dans le presse-papiers. Collez-le manuellement avec Command+V."},
    {StringKey::importRefused, "Impossible de lire ce fichier. Veuillez choisir une sauvegarde de réglages valide."},
});

}  // namespace rondora
