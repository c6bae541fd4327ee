#pragma once

#include <QImage>

#include "ui/appkit/painting/bitmap.h"

namespace rondora::appkit {

/// A copy of the pixels; a null image for none.
QImage toQImage(const Image& image);

}  // namespace rondora::appkit
