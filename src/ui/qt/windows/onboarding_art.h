#pragma once

#include <QPalette>
#include <QPixmap>
#include <QString>

namespace rondora {

/// The keys of a hotkey ("Ctrl+Alt+Space") side by side as key caps.
QPixmap keyCapsPixmap(const QString& hotkey, const QPalette& palette, double devicePixelRatio);

/// The mark before a step: a check when it is done, else a ring, heavier for the next step.
QPixmap stepMarkPixmap(bool isDone, bool isNext, const QPalette& palette, double devicePixelRatio);

}  // namespace rondora
