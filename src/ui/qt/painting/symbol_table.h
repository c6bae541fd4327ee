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
/// A name with or without its ".fill" ending finds the other form when it has no entry of its own.
std::optional<SymbolEntry> findSymbol(std::string_view name);

}  // namespace rondora
