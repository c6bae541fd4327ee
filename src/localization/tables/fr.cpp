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
    {StringKey::snippetHint, "Le texte est copié dans le presse-papiers. Collez-le manuellement avec Command+V."},
    {StringKey::importRefused, "Impossible de lire ce fichier. Veuillez choisir une sauvegarde de réglages valide."},
});

}  // namespace rondora
