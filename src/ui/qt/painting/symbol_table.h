#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace rondora {

/// The embedded picture that stands for a system symbol.
struct SymbolEntry {
  std::string_view name;
  /// Base name of the embedded file.
  std::string_view file;
};

std::span<const SymbolEntry> symbolTable();
/// Exactly this name; what to try for a name without an entry says model/symbol_name.h.
std::optional<SymbolEntry> findSymbol(std::string_view name);

}  // namespace rondora
