#pragma once

#include <QFont>
#include <QString>

#include "model/app_language.h"

namespace rondora {

/// Sets the layout direction and the font of all windows and menus, visible ones included, for a language. Needs the
/// application object; main thread.
void useInterfaceLanguage(AppLanguage language);

/// The interface's font for a language, with its letter forms.
QFont interfaceFont(AppLanguage language);

/// The current interface font, replaced for texts whose letters it would take from fonts that do not join them.
QFont interfaceFontFor(const QString& text);

/// For labels at the window's leading edge, also where a text runs the other way than the window.
Qt::Alignment leadingAlignment();

}  // namespace rondora
