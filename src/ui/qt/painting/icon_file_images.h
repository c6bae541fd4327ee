#pragma once

#include <QImage>
#include <QString>

#include "platform/picture_decoder.h"

// Reads untrusted files, so only the picture process should call these.

namespace rondora {

/// An image file fitted into `side` pixels; a null image when it is missing, broken or too large.
QImage imageFileImage(const QString& path, int side);

/// The picture of a web site, which may be small or have any background, as a tile of `side` pixels that is visible on
/// every colour; a null image when the file cannot be read.
QImage siteFileImage(const QString& path, int side);

/// The icon of that name in the theme, fitted into `side` pixels; a null image when there is none.
QImage themeIconImage(const QString& name, const IconTheme& theme, int side);

}  // namespace rondora
