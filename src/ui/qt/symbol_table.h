#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace rondora {

/// How a glyph of the symbol font is drawn.
enum class GlyphStyle {
  solid,      // as it is
  thin,       // its lines are strengthened
  lineDrawn,  // an outline drawing: its inside is filled, its lines are left out
};

/// What a system symbol looks like here: an embedded picture, or a glyph of a symbol font where there is no picture.
struct SymbolEntry {
  std::string_view name;
  /// Base name of the embedded file, empty for a glyph.
  std::string_view file;
  char32_t glyph = 0;
  GlyphStyle style = GlyphStyle::solid;
};

std::span<const SymbolEntry> symbolTable();
/// A name with or without its ".fill" ending finds the other form when it has no entry of its own.
std::optional<SymbolEntry> findSymbol(std::string_view name);

}  // namespace rondora
