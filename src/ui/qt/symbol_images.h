#pragma once

#include <QImage>
#include <QString>
#include <string_view>

#include "base/color.h"
#include "ui/qt/symbol_table.h"

namespace rondora {

/// The system symbol in `tint`, `side` pixels high and wide. A name that nobody knows gives a neutral symbol.
QImage symbolImage(std::string_view name, int side, Color tint);

/// The embedded picture of that base name; a null image when there is none.
QImage embeddedSymbolImage(std::string_view file, int side, Color tint);

/// A glyph of the symbol font; a null image when the font is not installed.
QImage glyphImage(char32_t glyph, GlyphStyle style, int side, Color tint);

}  // namespace rondora
