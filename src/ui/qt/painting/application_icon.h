#pragma once

#include <QIcon>
#include <QPixmap>

namespace rondora {

/// The program's own icon, also installed for launchers, on a square of that many points.
QPixmap applicationPixmap(int side, double devicePixelRatio);

/// In the sizes that trays and windows use.
QIcon applicationIcon();

}  // namespace rondora
