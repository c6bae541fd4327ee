#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace rondora {

/// The embedded picture for a system symbol.
struct SymbolEntry {
  std::string_view name;
  /// Base name of the embedded file.
  std::string_view file;
};

std::span<const SymbolEntry> symbolTable();
/// Looks up exactly this name; model/symbol_name.h defines the fallbacks.
std::optional<SymbolEntry> findSymbol(std::string_view name);

}  // namespace rondora
