#pragma once

#include <QPalette>
#include <QPixmap>
#include <QString>

namespace rondora {

/// The keys of a hotkey ("Ctrl+Alt+Space") side by side as key caps.
QPixmap keyCapsPixmap(const QString& hotkey, const QPalette& palette, double devicePixelRatio);

}  // namespace rondora
