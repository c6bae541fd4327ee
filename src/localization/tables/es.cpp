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
    {StringKey::settingsCopy, "Copiar"},
    {StringKey::settingsClose, "Cerrar"},
    {StringKey::settingsSession, "En esta sesión:"},
    {StringKey::sessionWorks, "Funciona"},
    {StringKey::sessionFails, "No funciona"},
    {StringKey::sessionX11, "Esta es una sesión X11: el anillo se abre sobre cualquier ventana."},
    {StringKey::sessionWayland,
     "Esta es una sesión Wayland: los atajos solo llegan mientras una ventana X11 tiene el teclado, y las ventanas de "
     "las aplicaciones Wayland no se pueden traer al frente."},
    {StringKey::sessionWaylandRemedy,
     "Elija una sesión X11 («Xorg») al iniciar sesión, o haga que un atajo de teclado de su escritorio llame al método "
     "«Trigger» de D-Bus; el archivo README explica cómo."},
    {StringKey::sessionHotkeysWork, "Todos los menús que tienen un atajo se abren con él."},
    {StringKey::sessionHotkeyRefusedRemedy,
     "Libere %@ en el otro programa o en los ajustes de teclado de su escritorio y vuelva a iniciar Rondora, o asigne "
     "otro atajo al menú en el archivo de configuración."},
    {StringKey::sessionHotkeyUnusable, "Rondora no puede usar aquí el atajo del menú «%@»."},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Salga de Rondora, asigne otro atajo al menú en el archivo de configuración y vuelva a iniciar Rondora."},
    {StringKey::sessionTray, "El icono de Rondora está en el área de notificación."},
    {StringKey::sessionNoTrayRemedy,
     "Añada un área de notificación a su panel; GNOME necesita para ello la extensión «AppIndicator». Sin el icono, "
     "estos ajustes se abren al iniciar Rondora una vez más."},
    {StringKey::sessionKeystrokes, "Las pulsaciones de teclas llegan a las demás aplicaciones."},
    {StringKey::sessionNoKeystrokes,
     "El servidor X no acepta pulsaciones de los programas, así que los elementos que pulsan teclas no hacen nada."},
    {StringKey::sessionNoKeystrokesRemedy, "Active la extensión XTEST del servidor X."},
    {StringKey::sessionTrackpadIgnored,
     "Esta versión todavía no reacciona a los toques en el panel táctil, así que no abren ningún menú."},
    {StringKey::sessionTrackpadUnreadable,
     "Rondora no tiene permiso para leer el panel táctil, así que tocarlo no abre ningún menú."},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "Abra estos menús con un atajo; puede asignárselo en el archivo de configuración."},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "Abra estos menús con un atajo. Una versión posterior reaccionará a los toques si su usuario pertenece al grupo "
     "«input»."},
    {StringKey::snippetHint, "El texto se ha copiado al portapapeles. Péguelo manualmente con Command+V."},
    {StringKey::importRefused,
     "No se ha podido leer este archivo. Elija una copia de seguridad de los ajustes que sea válida."},
});

}  // namespace rondora
