#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kSpanishStrings = completeTable({
    {StringKey::settings, "Ajustes"},
    {StringKey::quit, "Salir"},
    {StringKey::onboardingTitle, "Le damos la bienvenida a Rondora"},
    {StringKey::onboardingGreeting, "Todo lo que necesita, en un anillo alrededor del puntero"},
    {StringKey::onboardingWhatItIs,
     "Rondora abre un anillo de acciones alrededor del puntero: aplicaciones, enlaces y fragmentos de texto."},
    {StringKey::onboardingHowToOpen, "Pulse %@ para abrir el anillo."},
    {StringKey::onboardingHowToChoose,
     "Apunte a un sector y suelte las teclas, o haga clic en él. Esc cierra el anillo."},
    {StringKey::onboardingConfigurationFile, "Sus menús se guardan en un solo archivo: %@"},
    {StringKey::onboardingGetStarted, "Empezar"},
    {StringKey::settingsTitle, "Ajustes de Rondora"},
    {StringKey::settingsConfigurationFile, "Archivo de configuración:"},
    {StringKey::settingsOpenFolder, "Abrir carpeta"},
    {StringKey::settingsLanguage, "Idioma:"},
    {StringKey::settingsHotkeyRefused, "Otro programa ya usa el atajo del menú «%@»."},
    {StringKey::settingsNoTray, "Este escritorio no tiene área de notificación, por eso no se ve el icono de Rondora."},
    {StringKey::settingsHotkeysNote,
     "Los atajos globales usan la API Carbon del sistema. Es posible que las combinaciones solo con Fn o Globo no se "
     "registren: elija otro atajo."},
    {StringKey::snippetHint, "El texto se ha copiado al portapapeles. Péguelo manualmente con Command+V."},
    {StringKey::importRefused,
     "No se ha podido leer este archivo. Elija una copia de seguridad de los ajustes que sea válida."},
});

}  // namespace rondora
