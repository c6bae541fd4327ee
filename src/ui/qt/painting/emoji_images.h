#pragma once

#include <QImage>
#include <string_view>

namespace rondora {

/// The emoji in its own colours, fitted into `side` pixels; a null image when nothing is drawn.
QImage emojiImage(std::string_view text, int side);

}  // namespace rondora
