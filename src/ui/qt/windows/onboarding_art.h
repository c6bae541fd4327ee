#pragma once

#include <QPalette>
#include <QPixmap>
#include <QString>

namespace rondora {

/// A small ring in the colours of the first menu, one sector highlighted.
QPixmap ringPixmap(double devicePixelRatio);

/// The keys of a hotkey ("Ctrl+Alt+Space") side by side as key caps.
QPixmap keyCapsPixmap(const QString& hotkey, const QPalette& palette, double devicePixelRatio);

}  // namespace rondora
