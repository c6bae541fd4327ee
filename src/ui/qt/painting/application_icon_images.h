#pragma once

#include <QImage>
#include <QString>
#include <string_view>

#include "platform/application_icons.h"

namespace rondora {

/// The application's icon fitted into `side` pixels; a null image when none can be read.
QImage applicationIconImage(const ApplicationIconSource& source, int side);

/// An image file fitted into `side` pixels; a null image when it is missing, broken or too large.
QImage imageFileImage(const QString& path, int side);

/// The picture of a web site, which may be small or have any background, as a tile of `side` pixels that is visible on
/// every colour; a null image when the file cannot be read.
QImage faviconImage(const QString& path, int side);

}  // namespace rondora
