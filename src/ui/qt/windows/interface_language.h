#pragma once

#include <QFont>
#include <QString>

#include "model/app_language.h"

namespace rondora {

/// Puts what the toolkit draws itself into a language: the direction of windows and menus, those on the screen
/// included, and a font with the letter forms of its readers. Needs the application object; main thread.
void useInterfaceLanguage(AppLanguage language);

/// The font that the interface has in that language.
QFont interfaceFont(AppLanguage language);

/// The font of the present interface, changed where it would take the letters of `text` from fonts that do not join.
QFont interfaceFontFor(const QString& text);

}  // namespace rondora
