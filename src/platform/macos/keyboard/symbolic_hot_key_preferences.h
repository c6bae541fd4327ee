#pragma once

#include "platform/symbolic_hot_keys.h"

namespace rondora::macos {

/// The system's shortcuts as the user's preferences hold them.
class SymbolicHotKeyPreferences final : public SymbolicHotKeys {
 public:
  std::optional<SymbolicHotKey> symbolicHotKey(int number) const override;
};

}  // namespace rondora::macos
