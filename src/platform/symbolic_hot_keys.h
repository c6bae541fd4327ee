#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace rondora {

/// A keyboard shortcut of the system itself, as the user's settings hold it.
struct SymbolicHotKey {
  std::optional<bool> enabled;
  /// Character, key code, event flags.
  std::optional<std::vector<std::int64_t>> parameters;
};

/// Any thread.
class SymbolicHotKeys {
 public:
  virtual ~SymbolicHotKeys() = default;

  /// Nothing when the settings have no entry for the shortcut.
  virtual std::optional<SymbolicHotKey> symbolicHotKey(int number) const = 0;
};

}  // namespace rondora
