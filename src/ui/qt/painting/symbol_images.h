#pragma once

#include <QImage>
#include <string_view>

#include "base/color.h"

namespace rondora {

/// The system symbol in `tint`, `side` pixels high and wide. An unknown name gives a neutral symbol.
QImage symbolImage(std::string_view name, int side, Color tint);

}  // namespace rondora
